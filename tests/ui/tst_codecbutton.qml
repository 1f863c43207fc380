// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    property int presses: 0

    name: "CodecButton"

    Component {
        id: buttons

        Rectangle {
            id: column

            property int codec: OutputCodec.H264
            property string label: "H.264"
            property bool isSelected: true

            color: "#19122a"
            height: 60
            width: 262

            CodecButton {
                codec: column.codec
                label: column.label
                selected: column.isSelected
                width: parent.width
                onAction: ++test.presses
            }
        }
    }

    function button() {
        return one(view, CodecButton);
    }

    function test_symbol_data() {
        return [
            {"tag": "H.264", "codec": OutputCodec.H264, "symbol": Symbol.PlayRectangle},
            {"tag": "HEVC", "codec": OutputCodec.Hevc, "symbol": Symbol.HSquare},
            {"tag": "422", "codec": 2, "symbol": Symbol.FilmStack},
            {"tag": "422 HQ", "codec": 3, "symbol": Symbol.FilmStack},
            {"tag": "4444", "codec": 4, "symbol": Symbol.FilmStack},
        ];
    }

    function test_symbol(data) {
        show(buttons, {"codec": data.codec, "isSelected": false});
        const symbol = one(view, Symbol);
        compare(symbol.name, data.symbol);
        compare(symbol.color, Theme.white);
    }

    function test_measures() {
        show(buttons);
        compareArea(button(), 0, 0, 262, 34);
        const symbol = symbolOf(view, Symbol.PlayRectangle);
        compareArea(symbol.parent, 12, 8, 18, 18); // its frame
        compare(middle(symbol), 17);
        compare(area(symbol).x + symbol.width / 2, 12 + 9);
        const label = textOf(view, "H.264");
        compare(area(label).x, 12 + 18 + 10);
        fuzzyCompare(middle(label), 17, 0.5);
        const mark = symbolOf(view, Symbol.CheckmarkCircleFill);
        compare(area(mark).x + mark.width, 262 - 12);
        compare(middle(mark), 17);
    }

    function test_selected() {
        show(buttons);
        compareFont(textOf(view, "H.264"), 12, Font.DemiBold);
        compare(symbolOf(view, Symbol.CheckmarkCircleFill).color, Theme.dark.accent);
        const ground = one(view, SmoothRectangle);
        compareArea(ground, 0, 0, 262, 34);
        compare(ground.radius, 9);
        compare(ground.color, Qt.alpha(Theme.white, 0.11));
        compare(ground.borderWidth, 0);
        verify(Pixels.at(button(), 150, 4).g > view.color.g + 0.05);
    }

    function test_notSelected() {
        show(buttons, {"isSelected": false});
        compareFont(textOf(view, "H.264"), 12, Font.Normal);
        compare(all(view, Symbol, symbol => symbol.name === Symbol.CheckmarkCircleFill), []);
        compare(one(view, SmoothRectangle).color.a, 0);
        compare(Pixels.at(button(), 150, 4), view.color);
    }

    function test_answersThePointer_data() {
        return [{"tag": "selected", "isSelected": true}, {"tag": "not selected", "isSelected": false}];
    }

    function test_answersThePointer(data) {
        show(buttons, {"isSelected": data.isSelected});
        const ground = () => Pixels.at(button(), 150, 4);
        const verifyDiffers = before =>
            tryVerify(() => Pixels.contrastBetween(ground(), before, view.color) >= 1.1);
        const atRest = ground();
        mouseMove(button(), 150, 17);
        verifyDiffers(atRest);
        const hovered = ground();
        mousePress(button(), 150, 17);
        verifyDiffers(hovered);
        mouseRelease(button(), 150, 17);
        tryVerify(() => Qt.colorEqual(ground(), hovered));
        restPointer();
        tryVerify(() => Qt.colorEqual(ground(), atRest));
    }

    function test_selectionDoesNotMoveTheLabel() {
        show(buttons);
        const x = area(textOf(view, "H.264")).x;
        view.isSelected = false;
        settle();
        compare(area(textOf(view, "H.264")).x, x);
    }

    function test_showsTheLabelAsItIs() {
        show(buttons, {"label": "H.265 (HEVC) <i>"});
        compare(texts(view), ["H.265 (HEVC) <i>"]);
    }

    function test_aLongLabelLeavesRoomForTheMark() {
        show(buttons, {"label": "H.264 ".repeat(30)});
        const label = one(view, Text);
        verify(label.lineCount > 1 && label.contentHeight <= button().height);
        verify(area(label).x + label.width <= area(symbolOf(view, Symbol.CheckmarkCircleFill)).x);
    }

    function hold(key) {
        keyPress(key);
        Bench.repeatKey(key, 4);
        keyRelease(key);
    }

    function test_pressIsTheActionOnce_data() {
        return [
            {"tag": "click", "press": () => mouseClick(button())},
            {"tag": "at the very edge", "press": () => mouseClick(button(), 1, 17)},
            {"tag": "Space", "press": () => keyClick(Qt.Key_Space)},
            {"tag": "Return", "press": () => keyClick(Qt.Key_Return)},
            {"tag": "Enter", "press": () => keyClick(Qt.Key_Enter)},
            {"tag": "held Space", "press": () => hold(Qt.Key_Space)},
            {"tag": "held Return", "press": () => hold(Qt.Key_Return)},
            {"tag": "held Enter", "press": () => hold(Qt.Key_Enter)},
        ];
    }

    function test_pressIsTheActionOnce(data) {
        show(buttons, {"isSelected": false});
        button().forceActiveFocus(Qt.TabFocusReason);
        presses = 0;
        data.press();
        compare(presses, 1);
        // Who is selected is not the button's to say.
        compare(all(view, Symbol).length, 1);
    }

    function test_readableInBothSchemes() {
        inBothSchemes(() => {
            for (const isSelected of [true, false]) {
                show(buttons, {"isSelected": isSelected});
                compare(textOf(view, "H.264").color, Theme.white);
                verifyContrast(view, () => true);
            }
        });
    }
}
