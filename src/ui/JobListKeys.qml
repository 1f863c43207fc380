// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style

// For the list's `Keys.forwardTo`: they go from row to row, and work the current one.
Item {
    id: keys

    required property ConverterViewModel converter
    required property JobListView view

    readonly property JobRow row: view.currentItem as JobRow

    function copyMessage(): bool {
        if (!row || !row.job.message)
            return false;
        Clipboard.copy(row.job.message);
        return true;
    }

    // As the row's button does, which a job that is converted has not.
    function removeCurrent() {
        if (!row || row.job.isInProgress)
            return;
        converter.remove(row.job.id);
        view.keepKeyboard();
    }

    function moveCurrent(offset: int) {
        if (!row)
            return;
        converter.moveJob(row.job.id, offset);
        view.forceLayout();
    }

    // To the next row whose file name begins with what is typed; false when that is no text.
    function goToTyped(text: string, modifiers: int): bool {
        const found = typeAhead.findRow(text, modifiers, view.currentIndex, view.model);
        if (found >= 0)
            view.currentIndex = found;
        return found >= 0;
    }

    function goTo(index: int) {
        view.currentIndex = Math.max(0, Math.min(view.count - 1, index));
    }

    // False when the key is none of the list's.
    function work(event: KeyEvent): bool {
        const page = Math.max(1, Math.floor(view.height / view.contentHeight * view.count));
        switch (event.modifiers & ~Qt.KeypadModifier | event.key) {
        case Qt.Key_Up:
            goTo(view.currentIndex - 1);
            return true;
        case Qt.Key_Down:
            goTo(view.currentIndex + 1);
            return true;
        case Qt.Key_Home:
            goTo(0);
            return true;
        case Qt.Key_End:
            goTo(view.count - 1);
            return true;
        case Qt.Key_PageUp:
            goTo(view.currentIndex - page);
            return true;
        case Qt.Key_PageDown:
            goTo(view.currentIndex + page);
            return true;
        case Qt.Key_Delete:
            removeCurrent();
            return true;
        case Qt.AltModifier | Qt.Key_Up:
            moveCurrent(-1);
            return true;
        case Qt.AltModifier | Qt.Key_Down:
            moveCurrent(1);
            return true;
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            if (!row?.activeFocus || event.isAutoRepeat) // it is a button's, or was another's
                return false;
            // falls through
        case Qt.Key_Menu:
        case Qt.ShiftModifier | Qt.Key_F10:
            view.showCurrent();
            view.openMenu(Qt.point(10, row.height));
            return true;
        }
        return false;
    }

    Keys.onPressed: event => {
        view.forceLayout();
        if (event.matches(StandardKey.Copy)) {
            event.accepted = copyMessage();
            return;
        }
        event.accepted = goToTyped(event.text, event.modifiers) || work(event);
        if (!event.accepted)
            return;
        view.showsKeyboard = true;
        view.showCurrent();
    }

    TypeAhead {
        id: typeAhead
    }
}
