// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QObject>
#include <QtQmlIntegration>

namespace quorvale {

/// The colours of one scheme, light or dark. Text colours reach a contrast of 4.5:1 on `window`,
/// and on `rowCurrent` above it, which is nearer to them. Main thread.
class ColorScheme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The palette's where every text can be read on it, else the scheme's own.
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    /// The desktop palette's colour of windows.
    Q_PROPERTY(QColor paletteWindow MEMBER paletteWindow NOTIFY changed REQUIRED)
    /// Of windows where that will not do.
    Q_PROPERTY(QColor ownWindow MEMBER ownWindow NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor text MEMBER text NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor secondary MEMBER secondary NOTIFY changed REQUIRED)
    /// Of symbols that are a cue only, at 3:1.
    Q_PROPERTY(QColor tertiary MEMBER tertiary NOTIFY changed REQUIRED)
    /// Keeps its contrast at an opacity of 0.7 too.
    Q_PROPERTY(QColor secondarySymbol MEMBER secondarySymbol NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor separator MEMBER separator NOTIFY changed REQUIRED)
    /// Of what files can be dropped on, while there are none above it.
    Q_PROPERTY(QColor outline MEMBER outline NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor accent MEMBER accent NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor green MEMBER green NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor red MEMBER red NOTIFY changed REQUIRED)
    /// Under white text.
    Q_PROPERTY(QColor accentFill MEMBER accentFill NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor accentFillHovered MEMBER accentFillHovered NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor accentFillPressed MEMBER accentFillPressed NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor control MEMBER control NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor controlHovered MEMBER controlHovered NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor controlPressed MEMBER controlPressed NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor controlBorder MEMBER controlBorder NOTIFY changed REQUIRED)
    /// What of a bar or a switch is not filled.
    Q_PROPERTY(QColor track MEMBER track NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor trackHovered MEMBER trackHovered NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor trackPressed MEMBER trackPressed NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor popup MEMBER popup NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor popupBorder MEMBER popupBorder NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor rowHovered MEMBER rowHovered NOTIFY changed REQUIRED)
    /// Of the row that the keyboard works on.
    Q_PROPERTY(QColor rowCurrent MEMBER rowCurrent NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor rowPressed MEMBER rowPressed NOTIFY changed REQUIRED)
    /// How wide the border, in controlBorder, is of what usually stands out without one.
    Q_PROPERTY(int edge MEMBER edge NOTIFY changed)
    /// The opacity of the line between the window's halves.
    Q_PROPERTY(double dividerOpacity MEMBER dividerOpacity NOTIFY changed)
    /// The opacity of a picker that cannot be used.
    Q_PROPERTY(double faded MEMBER faded NOTIFY changed)
    /// The least contrast of texts with the window.
    Q_PROPERTY(float readable MEMBER readable NOTIFY changed)

public:
    using QObject::QObject;

    QColor window() const;

    QColor paletteWindow, ownWindow, text, secondary, tertiary, secondarySymbol, separator, accent,
        green, red, accentFill, accentFillHovered, accentFillPressed, control, controlHovered,
        controlPressed, controlBorder, track, trackHovered, trackPressed, popup, popupBorder,
        rowHovered, rowCurrent, rowPressed, outline;
    int edge = 0;
    double dividerOpacity = 0.55;
    double faded = 0.45;
    float readable = 4.5F;

Q_SIGNALS:
    void changed();
};

} // namespace quorvale
