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
    required property shownJob job
    required property ListRow row

    spacing: 12

    RowButton {
        row: controls.row
        symbol: Symbol.ArrowClockwiseCircleFill
        symbolColor: Theme.current.green
        symbolSize: Theme.scaled(18)
        text: "Queue this video again"
        visible: controls.job.isCompleted
        onClicked: {
            const hadFocus = activeFocus;
            const reason = focusReason;
            controls.model.requeue(controls.job.id);
            // It has gone, and the keyboard stays with the row.
            if (hadFocus)
                up.forceActiveFocus(reason);
        }
    }

    RowLayout {
        spacing: 2
        visible: !controls.job.isCompleted

        RowButton {
            id: up

            focusGap: 0 // the other one is close
            row: controls.row
            leftReach: Math.max(0, Theme.target - symbolSize - rightReach)
            rightReach: 1 // half the way to the other one
            symbol: Symbol.ChevronUp
            symbolColor: Theme.current.secondary
            text: "Move up"
            onClicked: controls.model.moveJob(controls.job.id, -1)
        }

        RowButton {
            focusGap: 0 // the other one is close
            row: controls.row
            leftReach: 1
            rightReach: Math.max(0, Theme.target - symbolSize - leftReach)
            symbol: Symbol.ChevronDown
            symbolColor: Theme.current.secondary
            text: "Move down"
            onClicked: controls.model.moveJob(controls.job.id, 1)
        }
    }

    RowButton {
        row: controls.row
        symbol: Symbol.XmarkCircleFill
        symbolColor: Theme.current.secondarySymbol
        symbolOpacity: 0.7
        text: "Remove from queue"
        visible: !controls.job.isCompleted
        onClicked: controls.model.remove(controls.job.id)
    }
}
