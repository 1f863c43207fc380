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
    /// Whether the row is the one that the keyboard works on.
    required property bool isCurrent

    // Also the button that has the focus, until it has gone: it must not be taken from it.
    function focusPolicyOf(button: Item): int {
        return isCurrent || button.activeFocus ? Qt.StrongFocus : Qt.ClickFocus;
    }

    spacing: 12

    SymbolButton {
        id: again

        focusPolicy: controls.focusPolicyOf(again)
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

        SymbolButton {
            id: up

            focusGap: 0 // the other one is close
            focusPolicy: controls.focusPolicyOf(up)
            leftReach: Math.max(0, Theme.target - symbolSize - rightReach)
            rightReach: 1 // half the way to the other one
            symbol: Symbol.ChevronUp
            symbolColor: Theme.current.secondary
            text: "Move up"
            onClicked: controls.model.moveJob(controls.job.id, -1)
        }

        SymbolButton {
            id: down

            focusGap: 0 // the other one is close
            focusPolicy: controls.focusPolicyOf(down)
            leftReach: 1
            rightReach: Math.max(0, Theme.target - symbolSize - leftReach)
            symbol: Symbol.ChevronDown
            symbolColor: Theme.current.secondary
            text: "Move down"
            onClicked: controls.model.moveJob(controls.job.id, 1)
        }
    }

    SymbolButton {
        id: remove

        focusPolicy: controls.focusPolicyOf(remove)
        symbol: Symbol.XmarkCircleFill
        symbolColor: Theme.current.secondarySymbol
        symbolOpacity: 0.7
        text: "Remove from queue"
        visible: !controls.job.isCompleted
        onClicked: controls.model.remove(controls.job.id)
    }
}
