// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// A text of the window: plain, whatever it is made of, and read out as it stands.
Text {
    textFormat: Text.PlainText
    Accessible.ignored: text === ""
    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
