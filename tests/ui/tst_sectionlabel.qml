// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "SectionLabel"

    Component {
        id: labels

        Rectangle {
            property string text: ""

            color: Theme.sidebarEnd
            height: 40
            width: 262

            SectionLabel {
                text: parent.text
            }
        }
    }

    function test_isSmallBoldAndSpaced() {
        show(labels, {"text": "OUTPUT FORMAT"});
        const label = textOf(view, "OUTPUT FORMAT");
        compareFont(label, 10, Font.Bold);
        fuzzyCompare(label.font.letterSpacing, 1.1, 0.01);
        compare(label.font.capitalization, Font.MixedCase);
    }

    function test_keepsTheCase() {
        show(labels, {"text": "Options <b>and</b> more"});
        verify(shows(view, "Options <b>and</b> more"));
        compare(one(view, Text).textFormat, Text.PlainText);
    }

    function test_isDimmedAndReadableInBothSchemes() {
        show(labels, {"text": "OPTIONS"});
        inBothSchemes(() => {
            compare(textOf(view, "OPTIONS").color, Theme.dark.secondary);
            verifyContrast(view);
        });
    }
}
