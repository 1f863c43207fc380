// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// A text that is shortened where it does not fit, and then whole in a tooltip.
TextLine {
    id: line

    elide: Text.ElideRight

    HoverTip {
        text: line.truncated ? line.text : ""
    }
}
