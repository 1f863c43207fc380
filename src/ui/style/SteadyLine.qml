// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

// One line of a text in a layout, as high as its own font needs. Letters and pictures that another
// font has to step in for make it no higher, nor do they move what the others stand on.
ElidedLine {
    id: line

    Layout.preferredHeight: Math.ceil(metrics.height)
    elide: Text.ElideMiddle
    maximumLineCount: 1

    transform: Translate {
        y: Math.round(metrics.ascent - line.baselineOffset)
    }

    FontMetrics {
        id: metrics

        font: line.font
    }
}
