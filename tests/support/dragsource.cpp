// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "dragsource.h"

#include "patience.h"
#include "virtualdisplay.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

DragSource::DragSource(const VirtualDisplay &display, const QProcessEnvironment &environment,
                       const QStringList &paths)
    : m_display(display)
{
    m_process.setProcessEnvironment(environment);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QStringLiteral(DRAG_SOURCE), paths);
}

bool DragSource::drop(const QRect &from, const QRect &to)
{
    return moveUntil(from, "entered") && m_display.xdotool({u"mousedown"_s, u"1"_s})
           && moveUntil(from, "dragging") && moveUntil(to, "action take")
           && m_display.xdotool({u"mouseup"_s, u"1"_s}) && moveUntil(to, "dropped take")
           && moveUntil(to, "fetched");
}

bool DragSource::moveUntil(const QRect &area, const char *awaited)
{
    const QPoint middle = area.center();
    int step = 0;
    const auto hasSaid = [&] {
        m_display.xdotool({u"mousemove"_s, QString::number(middle.x() + ++step % 20),
                           QString::number(middle.y())});
        m_said += m_process.readAllStandardOutput();
        return m_said.contains(awaited);
    };
    if (QTest::qWaitFor(hasSaid, patience))
        return true;
    qWarning("The drag never comes to \"%s\", but to: %s", awaited, m_said.constData());
    return false;
}

} // namespace quorvale::test
