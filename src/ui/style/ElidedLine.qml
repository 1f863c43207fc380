// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// A text that is shortened where it does not fit, and then whole in a tooltip.
TextLine {
    id: line

    /// What the text is a part of, if it is.
    property string whole: text

    elide: Text.ElideRight

    HoverTip {
        text: line.truncated || line.whole !== line.text ? line.whole : ""
    }
}
