// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "rowdrag.h"

#include "virtualdisplay.h"
#include "windowdriver.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

bool RowDrag::dragOver(const QString &row, const QString &other)
{
    const auto from = m_window.waitFor(AccessibleItem::named(AccessibleItem::Role::listItem, row));
    const auto to = m_window.waitFor(AccessibleItem::named(AccessibleItem::Role::listItem, other));
    if (!from || !to || !m_window.activate())
        return false;
    const QPoint begin = from->extents().center();
    const QPoint end = to->extents().center();
    if (!move(begin) || !m_display.xdotool({u"mousedown"_s, u"1"_s}))
        return false;
    constexpr int steps = 10;
    for (int step = 1; step <= steps; ++step) {
        QTest::qWait(20); // as a hand does
        if (!move(begin + (end - begin) * step / steps))
            return false;
    }
    return true;
}

bool RowDrag::release() const
{
    return m_display.xdotool({u"mouseup"_s, u"1"_s}) && m_display.parkMouse();
}

bool RowDrag::move(QPoint to) const
{
    return m_display.xdotool({u"mousemove"_s, QString::number(to.x()), QString::number(to.y())})
        .has_value();
}

} // namespace quorvale::test
