// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "waylanddisplay.h"

#include "patience.h"
#include "virtualdisplay.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

constexpr const char *settings = R"(xwayland disable
floating_modifier Mod4 normal
focus_follows_mouse no
for_window [app_id=".*"] floating enable, border none
for_window [title="^Quorvale$"] move absolute position 0 0
for_window [title="^Drag source$"] move absolute position 1120 0
)";

// Some versions of the compositor refuse to be the superuser's.
constexpr uid_t nobody = 65534;

QJsonObject findWindow(const QJsonObject &node, const QString &title)
{
    if (node["pid"_L1].isDouble() && node["name"_L1] == title)
        return node;
    for (const auto children : {"nodes"_L1, "floating_nodes"_L1}) {
        for (const auto &child : node[children].toArray()) {
            const QJsonObject found = findWindow(child.toObject(), title);
            if (!found.isEmpty())
                return found;
        }
    }
    return {};
}

} // namespace

WaylandDisplay::WaylandDisplay(const VirtualDisplay &display)
{
    QFile file(m_folder.filePath(u"settings"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(settings) < 0)
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    file.close();
    QProcessEnvironment environment = display.environment();
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    environment.insert(u"SWAYSOCK"_s, m_folder.filePath(u"questions"_s));
    environment.insert(u"WLR_BACKENDS"_s, u"x11"_s);
    environment.insert(u"WLR_RENDERER"_s, u"pixman"_s);
    m_compositor.setProcessEnvironment(environment);
    if (::geteuid() == 0) {
        if (::chown(QFile::encodeName(m_folder.path()).constData(), nobody, nobody) != 0)
            qFatal("Cannot give away %s", qPrintable(m_folder.path()));
        m_compositor.setPreparation([] {
            if (::setgid(nobody) != 0 || ::setuid(nobody) != 0)
                ::_exit(EXIT_FAILURE);
        });
    }
    m_compositor.start(u"sway"_s, {u"--config"_s, file.fileName()});
    const auto isReady = [&] { // with a mouse, and as large as the display
        return ask({u"--type"_s, u"get_seats"_s}).value_or(QByteArray()).contains("\"pointer\"")
               && outputWidth() == 1280;
    };
    if (!QTest::qWaitFor(isReady, patience))
        qFatal("sway does not get ready: %s %s", qPrintable(m_compositor.errorString()),
               m_compositor.readAllStandardError().constData());
    m_name =
        m_folder.filePath(QDir(m_folder.path()).entryList({u"wayland-?"_s}, QDir::System).value(0));
}

std::optional<QByteArray> WaylandDisplay::ask(const QStringList &arguments) const
{
    ChildOfTheTest question;
    question.start(u"swaymsg"_s,
                   QStringList{u"--socket"_s, m_folder.filePath(u"questions"_s), u"--raw"_s}
                       + arguments);
    if (!question.waitForFinished(patience) || question.exitStatus() != QProcess::NormalExit
        || question.exitCode() != 0)
        return std::nullopt;
    return question.readAllStandardOutput();
}

int WaylandDisplay::outputWidth() const
{
    const auto answer = ask({u"--type"_s, u"get_outputs"_s});
    const QJsonArray outputs = QJsonDocument::fromJson(answer.value_or(QByteArray())).array();
    return outputs[0]["rect"_L1]["width"_L1].toInt();
}

bool WaylandDisplay::command(const QString &words) const
{
    if (ask({words}))
        return true;
    qWarning("The compositor refuses \"%s\".", qPrintable(words));
    return false;
}

std::optional<WaylandDisplay::Window> WaylandDisplay::window(const QString &title) const
{
    const auto answer = ask({u"--type"_s, u"get_tree"_s});
    const QJsonObject tree = QJsonDocument::fromJson(answer.value_or(QByteArray())).object();
    const QJsonObject found = findWindow(tree, title);
    if (found.isEmpty())
        return std::nullopt;
    const QJsonObject area = found["rect"_L1].toObject();
    return Window{found["app_id"_L1].toString(),
                  QRect(area["x"_L1].toInt(), area["y"_L1].toInt(), area["width"_L1].toInt(),
                        area["height"_L1].toInt())};
}

} // namespace quorvale::test
