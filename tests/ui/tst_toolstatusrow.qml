// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "ToolStatusRow"

    Component {
        id: rows

        Rectangle {
            color: Theme.sidebarEnd
            height: 40
            width: 262

            ToolStatusRow {
                width: parent.width
            }
        }
    }

    function dot() {
        return one(view, Rectangle, item => item.width === 7);
    }

    function test_found() {
        show(rows);
        compare(texts(view), ["FFmpeg ready"]);
        compare(dot().color, Theme.dark.green);
    }

    function test_notFound() {
        Bench.removeTool();
        show(rows);
        compare(texts(view), ["FFmpeg required"]);
        compare(dot().color, Theme.orange);
    }

    function test_followsTheTool() {
        show(rows);
        Bench.removeTool();
        tryVerify(() => shows(view, "FFmpeg required"), 5000);
        compare(dot().color, Theme.orange);
        Bench.putToolBack();
        tryVerify(() => shows(view, "FFmpeg ready"), 5000);
        compare(dot().color, Theme.dark.green);
        compare(texts(view).length, 1);
    }

    function test_measures() {
        show(rows);
        const text = textOf(view, "FFmpeg ready");
        compare(area(dot()).x, 0);
        compare(dot().height, 7);
        compare(dot().radius, 3.5);
        compare(gapBeside(dot(), text), 7);
        fuzzyCompare(middle(dot()), middle(text), 0.51);
        compareFont(text, 11, Font.Normal);
        compare(text.color, Theme.dark.secondary);
        // A disc, not a square.
        verify(Qt.colorEqual(Pixels.at(dot(), 3, 3), Theme.dark.green));
        verify(!Qt.colorEqual(Pixels.at(dot(), 0, 0), Theme.dark.green));
    }

    function test_readableInBothSchemes() {
        show(rows);
        inBothSchemes(() => verifyContrast(view));
    }
}
