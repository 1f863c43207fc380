// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "fontdescription.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// In lower case and without the hyphens that may be in them.
constexpr std::array<std::pair<QLatin1StringView, QFont::Weight>, 14> weights{{
    {"thin"_L1, QFont::Thin},
    {"ultralight"_L1, QFont::ExtraLight},
    {"extralight"_L1, QFont::ExtraLight},
    {"light"_L1, QFont::Light},
    {"book"_L1, QFont::Normal},
    {"normal"_L1, QFont::Normal},
    {"regular"_L1, QFont::Normal},
    {"medium"_L1, QFont::Medium},
    {"semibold"_L1, QFont::DemiBold},
    {"demibold"_L1, QFont::DemiBold},
    {"bold"_L1, QFont::Bold},
    {"ultrabold"_L1, QFont::ExtraBold},
    {"extrabold"_L1, QFont::ExtraBold},
    {"black"_L1, QFont::Black},
}};

// Takes the style from the font's last words; false when the word is a part of the family.
bool takeStyle(QFont &font, const QString &word)
{
    const QString style = word.toLower().remove(u'-');
    if (style == "italic"_L1 || style == "oblique"_L1) {
        font.setItalic(true);
        return true;
    }
    const auto weight =
        std::ranges::find(weights, style, &std::pair<QLatin1StringView, QFont::Weight>::first);
    if (weight == weights.end())
        return false;
    font.setWeight(weight->second);
    return true;
}

} // namespace

std::optional<QFont> describedFont(const QString &description)
{
    if (description.size() > 1024)
        return std::nullopt;
    QStringList words = description.simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.size() < 2)
        return std::nullopt;
    QString number = words.takeLast();
    const bool isInPixels = number.endsWith("px"_L1);
    if (isInPixels)
        number.chop(2);
    bool isNumber = false;
    const double size = number.toDouble(&isNumber);
    // Beyond it no window could show anything.
    constexpr double largest = 100;
    if (!isNumber || !(size >= 1 && size <= largest))
        return std::nullopt;
    QFont font;
    while (words.size() > 1 && takeStyle(font, words.last()))
        words.removeLast();
    QString family = words.join(u' ');
    while (family.endsWith(u','))
        family.chop(1);
    font.setFamily(family);
    if (isInPixels)
        font.setPixelSize(qRound(size));
    else
        font.setPointSizeF(size);
    return font;
}

} // namespace quorvale
