// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// A text of the window: plain, whatever it is made of, on the left, whatever it is written in, and
// read out as it stands.
Text {
    horizontalAlignment: Text.AlignLeft
    textFormat: Text.PlainText
    Accessible.ignored: text === ""
    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
