// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "virtualdisplay.h"
#include "patience.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTest>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

constexpr const char *windowManagerSettings = R"(<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
  </keyboard>
  <mouse>
    <context name="Frame">
      <mousebind button="A-Right" action="Drag"><action name="Resize"/></mousebind>
    </context>
  </mouse>
  <applications>
    <application title="Quorvale">
      <position force="yes"><x>0</x><y>0</y></position>
    </application>
    <application title="Drag source">
      <position force="yes"><x>-0</x><y>0</y></position>
    </application>
    <application title="wlroots*">
      <fullscreen>yes</fullscreen>
    </application>
  </applications>
</openbox_config>
)";

} // namespace

VirtualDisplay::VirtualDisplay()
{
    // It chooses a free number itself and says it when it is ready.
    m_server.setStandardErrorFile(QProcess::nullDevice());
    const QString screen = u"%1x%2x24"_s.arg(size.width()).arg(size.height());
    const QByteArray number = m_server.startAndReadLine(
        u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, screen, u"-noreset"_s,
                    u"-nolisten"_s, u"tcp"_s, u"-fbdir"_s, m_folder.path()});
    m_name = u':' + QString::fromLatin1(number);

    QFile settings(m_folder.filePath(u"openbox.xml"_s));
    if (!settings.open(QIODevice::WriteOnly) || settings.write(windowManagerSettings) < 0)
        qFatal("Cannot write %s", qPrintable(settings.fileName()));
    settings.close();
    m_windowManager.setProcessEnvironment(environment());
    m_windowManager.setStandardErrorFile(QProcess::nullDevice());
    m_windowManager.start(u"openbox"_s,
                          {u"--sm-disable"_s, u"--config-file"_s, settings.fileName()});
    // It is what knows the number of desktops.
    if (!QTest::qWaitFor([this] { return run({u"get_num_desktops"_s}).has_value(); }, patience))
        qFatal("openbox or xdotool is missing or does not get ready.");
}

VirtualDisplay::~VirtualDisplay()
{
    m_server.terminate();
    m_server.waitForFinished(patience);
}

QProcessEnvironment VirtualDisplay::environment() const
{
    QProcessEnvironment environment = environmentWithoutDesktop(m_folder.path());
    environment.insert(u"DISPLAY"_s, m_name);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    return environment;
}

std::optional<QByteArray> VirtualDisplay::run(const QStringList &arguments) const
{
    ChildOfTheTest process;
    process.setProcessEnvironment(environment());
    process.start(u"xdotool"_s, arguments);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        return std::nullopt;
    return process.readAllStandardOutput();
}

std::optional<QByteArray> VirtualDisplay::xdotool(const QStringList &arguments) const
{
    auto output = run(arguments);
    if (!output)
        qWarning("xdotool %s failed.", qPrintable(arguments.join(u' ')));
    return output;
}

QStringList VirtualDisplay::windows(const QString &title) const
{
    const QString pattern = u'^' + QRegularExpression::escape(title) + u'$';
    // It fails when there is none.
    const auto output = run({u"search"_s, u"--onlyvisible"_s, u"--name"_s, pattern});
    return QString::fromLatin1(output.value_or(QByteArray())).split(u'\n', Qt::SkipEmptyParts);
}

std::optional<QString> VirtualDisplay::waitForWindow(const QString &title) const
{
    QStringList found;
    const auto isThere = [&] {
        found = windows(title);
        return !found.isEmpty();
    };
    if (QTest::qWaitFor(isThere, patience))
        return found.first();
    qWarning("There is no window with the title %s.", qPrintable(title));
    return std::nullopt;
}

bool VirtualDisplay::waitForNoWindow(const QString &title, int milliseconds) const
{
    return QTest::qWaitFor([&] { return windows(title).isEmpty(); }, milliseconds);
}

bool VirtualDisplay::activate(const QString &window) const
{
    if (!xdotool({u"windowactivate"_s, window}))
        return false;
    const auto hasKeyboard = [&] {
        return run({u"getwindowfocus"_s}).value_or(QByteArray()).trimmed() == window.toLatin1();
    };
    if (QTest::qWaitFor(hasKeyboard, patience))
        return true;
    qWarning("The window does not get the keyboard.");
    return false;
}

bool VirtualDisplay::demandsAttention(const QString &window) const
{
    ChildOfTheTest xprop;
    xprop.setProcessEnvironment(environment());
    return xprop.run(u"xprop"_s, {u"-id"_s, window, u"_NET_WM_STATE"_s})
        .value_or(QByteArray())
        .contains("_NET_WM_STATE_DEMANDS_ATTENTION");
}

QRect VirtualDisplay::areaOf(const QString &window) const
{
    // Where xdotool says that a window is, some versions count its frame twice.
    const auto said =
        xdotool({u"getwindowgeometry"_s, u"--shell"_s, window, u"mousemove"_s, u"--window"_s,
                 window, u"0"_s, u"0"_s, u"getmouselocation"_s, u"--shell"_s});
    static const QRegularExpression number(u"^(WIDTH|HEIGHT|X|Y)=(\\d+)$"_s,
                                           QRegularExpression::MultilineOption);
    QHash<QString, int> last;
    for (const auto &match : number.globalMatch(QString::fromLatin1(said.value_or(QByteArray()))))
        last[match.captured(1)] = match.captured(2).toInt();
    if (last.size() < 4 || !parkMouse())
        return {};
    return {last[u"X"_s], last[u"Y"_s], last[u"WIDTH"_s], last[u"HEIGHT"_s]};
}

bool VirtualDisplay::parkMouse() const
{
    return xdotool({u"mousemove"_s, QString::number(size.width() - 1),
                    QString::number(size.height() - 1)})
        .has_value();
}

QByteArray VirtualDisplay::picture(const QRect &area) const
{
    // An XWD file: a header of big-endian numbers, the first of which is the header's length, a map
    // of colours, and the lines of pixels.
    QFile file(m_folder.filePath(u"Xvfb_screen0"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray screen = file.readAll();
    const auto number = [&screen](qsizetype index) -> qsizetype {
        return screen.size() < 4 * (index + 1) ? 0
                                               : qFromBigEndian<quint32>(screen.data() + 4 * index);
    };
    constexpr qsizetype colourBytes = 12;
    constexpr qsizetype pixelBytes = 4;
    const qsizetype lineBytes = number(12);
    const qsizetype pixels = number(0) + number(19) * colourBytes;
    QByteArray picture;
    for (int y = area.top(); y <= area.bottom(); ++y)
        picture += screen.mid(pixels + y * lineBytes + area.left() * pixelBytes,
                              area.width() * pixelBytes);
    return picture;
}

QByteArray VirtualDisplay::restingPicture(const QRect &area) const
{
    QByteArray last;
    QElapsedTimer unchanged;
    const auto rests = [&] {
        if (const QByteArray now = picture(area); now != last) {
            last = now;
            unchanged.start();
        }
        return unchanged.isValid() && unchanged.hasExpired(300);
    };
    if (QTest::qWaitFor(rests, patience))
        return last;
    qWarning("The screen does not come to rest.");
    return {};
}

} // namespace quorvale::test
