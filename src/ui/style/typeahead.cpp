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
    if (m_end.hasExpired())
        forget();
    if (m_beginning.isEmpty() && text.front().isSpace())
        return -1;

    m_beginning += comparable(text);
    m_end.setRemainingTime(m_pause);
    if (m_beginning.isEmpty() || count <= 0) // an accent by itself, or nothing to find
        return current;

    const bool goesOn = isOneLetter(m_beginning);
    const QString beginning = goesOn ? m_beginning.left(1) : m_beginning;
    // Of a long text no more than that takes, were each of its letters to have three accents.
    const auto length = 4 * beginning.size();
    const int first = std::clamp(current, -1, count - 1) + (goesOn || current < 0 ? 1 : 0);
    for (int i = 0; i < count; ++i) {
        const int index = (first + i) % count;
        if (comparable(textAt(index).left(length)).startsWith(beginning))
            return index;
    }
    return current;
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
