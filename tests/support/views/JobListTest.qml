// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// A test of the list of jobs, or of something in it.
ViewTest {
    id: test

    readonly property Component lists: Component {
        JobList {
            height: 460
            model: Bench.model
            width: 649
        }
    }

    readonly property Component fields: Component {
        TextEdit {}
    }

    /// The rows, which scroll.
    function list() {
        return one(view, JobListView);
    }

    function isInSight(item) {
        const found = area(item, list());
        return found.y >= -0.5 && found.y + found.height <= list().height + 0.5;
    }

    /// Shows so many jobs, the first of which has the keyboard.
    function showRows(count) {
        Bench.queueMany(count);
        show(lists);
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
    }

    /// What is in the clipboard.
    function pasted() {
        const field = createTemporaryObject(fields, test);
        field.paste();
        return field.text;
    }
}
