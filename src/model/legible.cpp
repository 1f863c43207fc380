// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "legible.h"

#include <QStringList>

#include <algorithm>

namespace quorvale {

namespace {

// Honest names carry them, as those that Windows makes up in Hebrew; a substitute would blot them.
bool isMarkOfDirection(QChar character)
{
    return character == u'\u200e' || character == u'\u200f' || character == u'\u061c';
}

bool ordersDirection(QChar character)
{
    return (character >= u'\u202a' && character <= u'\u202e')
           || (character >= u'\u2066' && character <= u'\u2069');
}

bool isIllegible(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return ordersDirection(character);
    }
}

} // namespace

QString legible(QString text)
{
    text.removeIf(isMarkOfDirection);
    std::ranges::replace_if(text, isIllegible, QChar(QChar::ReplacementCharacter));
    return text;
}

QString legibleLines(const QString &text)
{
    QStringList lines = text.split(u'\n');
    std::ranges::transform(lines, lines.begin(), legible);
    return lines.join(u'\n');
}

} // namespace quorvale
