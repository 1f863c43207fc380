// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "typeahead.h"

#include <QAbstractItemModel>

#include <algorithm>

namespace quorvale {

namespace {

/// Without case and accents.
QString comparable(const QString &text)
{
    QString letters = text.normalized(QString::NormalizationForm_KD);
    letters.removeIf([](QChar each) { return each.isMark(); });
    return letters.toCaseFolded();
}

bool isOneLetter(const QString &letters)
{
    return std::ranges::all_of(letters,
                               [first = letters.front()](QChar each) { return each == first; });
}

} // namespace

int TypeAhead::find(const QString &text, int modifiers, int current, int count,
                    const TextAt &textAt)
{
    constexpr int commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isText = !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate());
    if (!isText || (modifiers & commands))
        return -1;
    if (m_end.hasExpired() || current != m_current)
        forget();
    m_current = current;
    const bool isSpace = text.front().isSpace();
    if (isSpace && m_beginning.isEmpty())
        return -1;

    m_beginning += comparable(text);
    m_end.setRemainingTime(m_pause);
    if (m_beginning.isEmpty()) // an accent by itself
        return current;

    const bool goesOn = isOneLetter(m_beginning);
    const QString beginning = goesOn ? m_beginning.left(1) : m_beginning;
    // Of a long text no more than that takes, were each of its letters to have three accents.
    const auto length = 4 * beginning.size();
    const int first = std::clamp(current, -1, count - 1) + (goesOn || current < 0 ? 1 : 0);
    for (int i = 0; i < count; ++i) {
        const int index = (first + i) % count;
        if (comparable(textAt(index).left(length)).startsWith(beginning))
            return m_current = index;
    }
    if (!isSpace)
        return current;
    forget(); // the space bar is meant as the key that it is elsewhere
    return -1;
}

int TypeAhead::find(const QString &text, int modifiers, int current, int count,
                    const QJSValue &textAt)
{
    return find(text, modifiers, current, count,
                [&textAt](int index) { return textAt.call({index}).toString(); });
}

int TypeAhead::findRow(const QString &text, int modifiers, int current,
                       const QAbstractItemModel *model)
{
    return find(text, modifiers, current, model->rowCount(),
                [model](int row) { return model->index(row, 0).data().toString(); });
}

} // namespace quorvale
