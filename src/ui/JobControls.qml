// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// What can be done with a job that is not being converted.
RowLayout {
    id: controls

    required property ConverterViewModel model
    required property var jobId
    required property bool isCompleted
    /// Whether the row is the one that the keyboard works on.
    required property bool isCurrent

    readonly property int focusPolicy: isCurrent ? Qt.StrongFocus : Qt.ClickFocus

    spacing: 12

    SymbolButton {
        focusPolicy: controls.focusPolicy
        help: "Queue this video again"
        symbol: Symbol.ArrowClockwiseCircleFill
        symbolColor: Theme.current.green
        symbolSize: 18
        text: "Queue this video again"
        visible: controls.isCompleted
        onClicked: controls.model.requeue(controls.jobId)
    }

    RowLayout {
        spacing: 2
        visible: !controls.isCompleted

        SymbolButton {
            focusPolicy: controls.focusPolicy
            symbol: Symbol.ChevronUp
            symbolColor: Theme.current.secondarySymbol
            text: "Move up"
            onClicked: controls.model.moveJob(controls.jobId, -1)
        }

        SymbolButton {
            focusPolicy: controls.focusPolicy
            symbol: Symbol.ChevronDown
            symbolColor: Theme.current.secondarySymbol
            text: "Move down"
            onClicked: controls.model.moveJob(controls.jobId, 1)
        }
    }

    SymbolButton {
        focusPolicy: controls.focusPolicy
        help: "Remove from queue"
        symbol: Symbol.XmarkCircleFill
        symbolColor: Theme.current.secondarySymbol
        symbolOpacity: 0.7
        text: "Remove from queue"
        visible: !controls.isCompleted
        onClicked: controls.model.remove(controls.jobId)
    }
}
