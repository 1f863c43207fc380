// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    readonly property string longPath: "/start of it/" + "folder/".repeat(60) + "end of it"

    name: "DestinationButton"

    Component {
        id: buttons

        DestinationButton {
            model: Bench.model
            width: 400
        }
    }

    function destination() {
        return textOf(view, texts(view)[1]);
    }

    function test_withoutADestination() {
        show(buttons);
        compare(texts(view), ["Save to", "Choose destination\u2026"]);
    }

    function test_showsThePathAsItIs_data() {
        return ["/out", "/with space/50%20 <b>off</b> & more", "/höhe/日本", "/\u05e9\u05dc\u05d5\u05dd", "/"]
            .map(path => ({"tag": path}));
    }

    function test_showsThePathAsItIs(data) {
        show(buttons);
        Bench.chooseDestination(data.tag);
        compare(texts(view), ["Save to", data.tag]);
        compare(destination().textFormat, Text.PlainText);
        compare(destination().horizontalAlignment, Text.AlignLeft);
        Bench.chooseDestination("");
        compare(texts(view), ["Save to", "Choose destination\u2026"]);
    }

    function test_longPathIsShortenedInTheMiddle() {
        Bench.chooseDestination(longPath);
        show(buttons);
        compare(destination().text, longPath);
        verify(destination().truncated);
        compare(destination().elide, Text.ElideMiddle);
        compare(destination().lineCount, 1);
        verify(area(destination()).x + destination().contentWidth <= 400);
        compare(view.height, view.implicitHeight);
    }

    function test_fadesWhileItIsHeld() {
        show(buttons);
        compare(view.contentItem.opacity, 1);
        mousePress(view, 20, 10);
        compare(view.contentItem.opacity, 0.6);
        mouseMove(view, 20, 400, -1, Qt.LeftButton);
        mouseRelease(view, 20, 400);
        compare(view.contentItem.opacity, 1);
        compare(Bench.openedPanels, []);
    }

    function test_answersThePointer() {
        show(buttons);
        inBothSchemes(() => {
            const ground = () => Pixels.at(view, 200, 3);
            verify(Qt.colorEqual(ground(), Theme.current.window));
            mouseMove(view, 200, 10);
            tryVerify(() => Pixels.contrastBetween(ground(), Theme.current.window, "black") >= 1.1);
            const hovered = ground();
            mousePress(view, 200, 10);
            tryVerify(() => Pixels.contrastBetween(ground(), hovered, "black") >= 1.1);
            mouseMove(view, 20, 400, -1, Qt.LeftButton);
            mouseRelease(view, 20, 400);
            restPointer();
            tryVerify(() => Qt.colorEqual(ground(), Theme.current.window));
        });
    }

    function test_isReadOutOnce() {
        Bench.chooseDestination("/out");
        show(buttons);
        compare(view.Accessible.name, "Save to /out");
        for (const line of all(view, TextLine))
            verify(line.Accessible.ignored, line.text);
    }

    function test_pathOfTwoLinesStaysOneLine() {
        show(buttons);
        const height = view.height;
        Bench.chooseDestination("/out\nput");
        compare(destination().text, "/out\ufffdput");
        compare(destination().lineCount, 1);
        settle();
        compare(view.height, height);
        compareTip(destination(), 10, 5, "/out\nput");
        compare(view.Accessible.name, "Save to /out\nput");
    }

    function test_tooltipHasTheWholePath() {
        Bench.chooseDestination(longPath);
        show(buttons);
        compareTip(destination(), 60, 5, longPath);
    }

    function test_noTooltipForWhatFits() {
        Bench.chooseDestination("/out");
        show(buttons);
        verifyNoTip(destination(), 10, 5);
    }

    function test_opensOnePanel_data() {
        return [
            {"tag": "click on the path", "press": () => mouseClick(destination())},
            {"tag": "click on the symbol", "press": () => mouseClick(view, 5, view.height / 2)},
            {"tag": "click far right", "press": () => mouseClick(view, 395, view.height / 2)},
            {"tag": "Return", "press": () => keyClick(Qt.Key_Return)},
            {"tag": "Space", "press": () => keyClick(Qt.Key_Space)},
        ];
    }

    function test_opensOnePanel(data) {
        show(buttons);
        view.forceActiveFocus(Qt.TabFocusReason);
        Bench.answer(["/chosen"]);
        data.press();
        tryVerify(() => Bench.openedPanels.length > 0);
        wait(0);
        compare(Bench.openedPanels, ["Choose output folder"]);
        compare(texts(view), ["Save to", "/chosen"]);
    }

    function test_cancelledPanelChangesNothing() {
        Bench.chooseDestination("/out");
        show(buttons);
        mouseClick(view);
        tryVerify(() => Bench.openedPanels.length > 0);
        compare(texts(view), ["Save to", "/out"]);
    }

    function test_measures() {
        show(buttons);
        const symbol = symbolOf(view, Symbol.FolderFill);
        const caption = textOf(view, "Save to");
        compare(area(symbol).x, 6);
        compare(gapBeside(symbol, caption), 10);
        compare(area(destination()).x, area(caption).x);
        compare(gapBelow(caption, destination()), 2);
        compare(area(destination()).x + destination().width, 400 - 6);
        fuzzyCompare(middle(symbol), view.height / 2, 0.51);
        compareFont(caption, 11, Font.Normal);
        compareFont(destination(), 13, Font.Normal);
    }

    function test_colours() {
        show(buttons);
        inBothSchemes(() => {
            compare(symbolOf(view, Symbol.FolderFill).color, Theme.current.accent);
            compare(textOf(view, "Save to").color, Theme.current.secondary);
            compare(destination().color, Theme.current.text);
            verifyContrast(view, () => true);
        });
    }

    function test_hasNoBezel() {
        show(buttons);
        compare(Pixels.at(view, 399, 1), Theme.current.window);
        compare(Pixels.at(view, 200, 0), Theme.current.window);
    }
}
