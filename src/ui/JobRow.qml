// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Controls.Basic

Column {
    id: row

    required property string fileName
    required property string folderName
    required property string stateWord
    required property double progress
    required property bool isInProgress
    required property string failure

    topPadding: 7
    bottomPadding: 7
    spacing: 6

    Label {
        width: row.width
        elide: Text.ElideMiddle
        font.weight: Font.Medium
        text: row.fileName
        textFormat: Text.PlainText
    }

    Label {
        width: row.width
        elide: Text.ElideRight
        text: row.folderName + " • " + row.stateWord
        textFormat: Text.PlainText
    }

    ProgressBar {
        width: row.width
        visible: row.isInProgress
        value: row.progress
    }

    Label {
        width: row.width
        color: "#c41e3a"
        elide: Text.ElideRight
        maximumLineCount: 2
        text: row.failure
        textFormat: Text.PlainText
        visible: row.failure !== ""
        wrapMode: Text.Wrap
    }
}
