// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "colorscheme.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvale {

namespace {

// As the Web Content Accessibility Guidelines 2.1 define it, ...
float luminance(const QColor &color)
{
    const auto linear = [](float part) {
        return part <= 0.04045F ? part / 12.92F : std::pow((part + 0.055F) / 1.055F, 2.4F);
    };
    return 0.2126F * linear(color.redF()) + 0.7152F * linear(color.greenF())
           + 0.0722F * linear(color.blueF());
}

// ... and this, too: 1 to 21.
float contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05F) / (darker + 0.05F);
}

// The colour that the upper one, which may let it through, makes of the lower one.
QColor over(const QColor &lower, const QColor &upper)
{
    const float alpha = upper.alphaF();
    const auto mixed = [alpha](float below, float above) {
        return below + alpha * (above - below);
    };
    return QColor::fromRgbF(mixed(lower.redF(), upper.redF()),
                            mixed(lower.greenF(), upper.greenF()),
                            mixed(lower.blueF(), upper.blueF()));
}

} // namespace

QColor ColorScheme::window() const
{
    const auto isReadable = [this, ground = over(paletteWindow, rowCurrent)](const QColor &color) {
        return contrast(color, ground) >= readable;
    };
    return std::ranges::all_of(std::array{text, secondary, accent, green, red}, isReadable)
               ? paletteWindow
               : ownWindow;
}

} // namespace quorvale
