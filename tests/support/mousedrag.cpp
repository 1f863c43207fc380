// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "mousedrag.h"
#include "patience.h"

#include "virtualdisplay.h"

#include <QDeadlineTimer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

// The mouse with its button down, moving on until something has happened.
class MovingMouse
{
public:
    MovingMouse(const VirtualDisplay &display, const QString &window, QPoint at)
        : m_display(display), m_window(window), m_at(at)
    {
    }

    template <typename Predicate>
    bool moveUntil(Predicate hasHappened, int milliseconds)
    {
        const QDeadlineTimer deadline(milliseconds);
        for (int step = 0; !deadline.hasExpired(); ++step) {
            if (!move(m_at + QPoint(step % 20, 0)))
                return false;
            QTest::qWait(5); // lets the output of the drag source come in
            if (hasHappened())
                return true;
        }
        return false;
    }

private:
    bool move(QPoint to) const
    {
        return m_display
            .xdotool({u"mousemove"_s, u"--window"_s, m_window, QString::number(to.x()),
                      QString::number(to.y())})
            .has_value();
    }

    const VirtualDisplay &m_display;
    const QString m_window;
    const QPoint m_at;
};

QPoint centreOf(const VirtualDisplay &display, const QString &window)
{
    const QSize size = display.sizeOf(window).value_or(QSize());
    return {size.width() / 2, size.height() / 2};
}

} // namespace

MouseDrag::End MouseDrag::dropFiles(const QStringList &paths, const QString &window) const
{
    return drop(paths, Expected::taken, window);
}

MouseDrag::End MouseDrag::dropText(const QString &text, const QString &window) const
{
    return drop({u"--text"_s, text}, Expected::refused, window);
}

MouseDrag::End MouseDrag::drop(const QStringList &arguments, Expected expected,
                               const QString &window) const
{
    ChildOfTheTest source;
    source.setProcessEnvironment(m_display.environment());
    source.setStandardErrorFile(QProcess::nullDevice());
    source.start(QStringLiteral(DRAG_SOURCE), arguments);
    QByteArray said;
    const auto hasSaid = [&](const QByteArray &line) {
        said += source.readAllStandardOutput();
        return said.contains(line + '\n');
    };
    const auto lost = [](const char *why) {
        qWarning("The drag is lost: %s.", why);
        return End::lost;
    };

    const auto sourceWindow = m_display.waitForWindow(u"Drag source"_s);
    if (!sourceWindow || !m_display.activate(*sourceWindow))
        return lost("its source does not show");
    MovingMouse overSource(m_display, *sourceWindow, centreOf(m_display, *sourceWindow));
    if (!overSource.moveUntil([] { return true; }, patience)
        || !m_display.xdotool({u"mousedown"_s, u"1"_s}))
        return lost("the mouse does not work");
    if (!overSource.moveUntil([&] { return hasSaid("dragging"); }, patience))
        return lost("it does not begin");

    MovingMouse overWindow(m_display, window, centreOf(m_display, window));
    const auto isTaken = [&] {
        return hasSaid("action take");
    };
    // A refusal shows in nothing but that no consent comes.
    overWindow.moveUntil(isTaken, expected == Expected::taken ? patience : 1000);
    if (!m_display.xdotool({u"mouseup"_s, u"1"_s})
        || !QTest::qWaitFor([&] { return hasSaid("dropped take") || hasSaid("dropped ignore"); },
                            patience))
        return lost("it does not end");
    if (hasSaid("dropped ignore"))
        return End::refused;
    if (!QTest::qWaitFor([&] { return hasSaid("fetched"); }, patience))
        return lost("the window does not fetch it");
    return End::taken;
}

} // namespace quorvale::test
