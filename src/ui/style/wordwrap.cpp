// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "wordwrap.h"

#include <QTextLayout>

namespace quorvale {

QString WordWrap::broken(QString text, const QFont &font, double width)
{
    if (width <= 0)
        return text;
    QTextLayout layout(text, font);
    QTextOption option(Qt::AlignLeft);
    option.setUseDesignMetrics(true); // as Qt Quick does
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine(); // as wide as it comes
    layout.endLayout();

    int start = 0;
    int end = -1; // of the last word that is known to fit
    for (int position = 0; position <= text.size(); ++position) {
        if (position < text.size() && text[position] != u' ')
            continue;
        if (end > start && line.cursorToX(position) - line.cursorToX(start) > width) {
            text[end] = u'\n';
            start = end + 1;
        }
        end = position;
    }
    return text;
}

} // namespace quorvale
