// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "QueueFooter"

    Component {
        id: footers

        QueueFooter {
            model: Bench.model
            width: 649
        }
    }

    function convertButtons() {
        return all(view, ProminentButton);
    }

    function convertButton() {
        compare(convertButtons().length, 1);
        return convertButtons()[0];
    }

    function cancelButtons() {
        return all(view, BorderedButton, button => button.text === "Cancel");
    }

    function revealButtons() {
        return all(view, SymbolButton);
    }

    function startConversion() {
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        verify(Bench.model.isConverting);
        settle();
    }

    /// That the conversion has not been told to end: it does not do so by itself.
    function verifyNotCancelled() {
        wait(200);
        verify(Bench.model.isConverting);
    }

    function test_emptyQueue() {
        show(footers);
        compare(convertButton().text, "Convert 0 Videos");
        verify(!convertButton().enabled);
        inBothSchemes(() => {
            for (const part of [textOf(view, "Convert 0 Videos"), symbolOf(view, Symbol.BoltFill)]) {
                const contrast = Pixels.contrast(part, part.color);
                verify(contrast >= 3, contrast);
            }
            compare(Pixels.count(convertButton(), Theme.current.accentFill), 0);
        });
        mouseClick(convertButton());
        compare(Assistant.description(convertButton()), "unavailable");
        Assistant.act(convertButton(), "Press");
        verify(!Bench.model.isConverting);
        compare(Bench.model.alertMessage, "");
    }

    function test_oneWaitingVideo() {
        show(footers);
        Bench.queue(["a.mp4"]);
        compare(convertButton().text, "Convert 1 Video");
        verify(convertButton().enabled);
        compare(Assistant.description(convertButton()), "");
        compare(convertButton().opacity, 1);
        Assistant.act(convertButton(), "Press");
        verify(Bench.model.alertMessage !== ""); // which asks for a folder
    }

    function test_theTotalDecidesThePlural() {
        show(footers);
        Bench.queue(["a.mp4", "b.mp4"]);
        compare(convertButton().text, "Convert 2 Videos");
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("No.");
        verify(Bench.convert());
        compare(convertButton().text, "Convert 1 Videos");
        verify(shows(view, "Convert 1 Videos"));
    }

    function test_oneCompletedVideo() {
        show(footers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        compare(convertButton().text, "Convert 0 Video");
        verify(convertButton().enabled);
        mouseClick(convertButton());
        verify(!Bench.model.isConverting);
        verify(Bench.model.alertMessage !== "");
    }

    function test_convertStartsTheBatch_data() {
        return [
            {"tag": "click", "press": () => mouseClick(convertButton())},
            {"tag": "Return", "press": () => keyClick(Qt.Key_Return)},
            {"tag": "Space", "press": () => keyClick(Qt.Key_Space)},
        ];
    }

    function test_convertStartsTheBatch(data) {
        show(footers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        convertButton().forceActiveFocus(Qt.TabFocusReason);
        data.press();
        verify(Bench.model.isConverting);
        compare(Bench.openedPanels, []);
    }

    function test_convertWithoutADestinationAsksForNothing() {
        show(footers);
        Bench.queue(["a.mp4"]);
        mouseClick(convertButton());
        verify(!Bench.model.isConverting);
        verify(Bench.model.alertMessage !== "");
        compare(Bench.openedPanels, []);
    }

    function test_cancelReplacesConvert() {
        show(footers);
        Bench.queue(["a.mp4"]);
        compare(cancelButtons(), []);
        const height = view.height;
        startConversion();
        compare(convertButtons(), []);
        compare(cancelButtons().length, 1);
        const cancel = cancelButtons()[0];
        verify(!(cancel instanceof ProminentButton));
        compare(cancel.height, 26);
        compare(view.height, height);
        compare(all(cancel, Symbol), []);
        compare(textOf(cancel, "Cancel").color, Theme.current.red);
        mouseClick(cancel);
        tryVerify(() => !Bench.model.isConverting);
        compare(cancelButtons(), []);
        compare(convertButton().text, "Convert 1 Video");
    }

    function test_theKeyboardGoesFromConvertToCancelAndBack_data() {
        return [
            {"tag": "shown", "reason": Qt.TabFocusReason, "isShown": true},
            {"tag": "not shown", "reason": Qt.MouseFocusReason, "isShown": false},
        ];
    }

    function test_theKeyboardGoesFromConvertToCancelAndBack(data) {
        show(footers);
        Bench.queue(["a.mp4"]);
        convertButton().forceActiveFocus(data.reason);
        compare(convertButton().visualFocus, data.isShown);
        startConversion();
        verify(cancelButtons()[0].activeFocus);
        compare(cancelButtons()[0].visualFocus, data.isShown);
        keyClick(Qt.Key_Space);
        tryVerify(() => !Bench.model.isConverting);
        verify(convertButton().activeFocus);
        compare(convertButton().visualFocus, data.isShown);
    }

    function test_theKeyboardStaysWhereItIs() {
        show(footers);
        Bench.queue(["a.mp4"]);
        const destination = one(view, DestinationButton);
        destination.forceActiveFocus(Qt.TabFocusReason);
        startConversion();
        verify(destination.visualFocus);
        verify(Bench.cancel());
        verify(destination.visualFocus);
    }

    function test_aHeldKeyPressesConvertOnce_data() {
        return [
            {"tag": "Return", "key": Qt.Key_Return},
            {"tag": "Enter", "key": Qt.Key_Enter},
        ];
    }

    function test_aHeldKeyPressesConvertOnce(data) {
        show(footers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        convertButton().forceActiveFocus(Qt.TabFocusReason);
        keyPress(data.key);
        verify(Bench.model.isConverting);
        tryCompare(Bench.model, "overallProgress", 0.5);
        Bench.repeatKey(data.key, 5);
        keyRelease(data.key);
        verifyNotCancelled();
        verify(cancelButtons()[0].activeFocus);
        keyClick(data.key);
        tryVerify(() => !Bench.model.isConverting);
        Bench.repeatKey(data.key, 5);
        verify(!Bench.model.isConverting);
    }

    function test_aHeldSpaceBarPressesConvertOnce() {
        show(footers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        convertButton().forceActiveFocus(Qt.TabFocusReason);
        keyPress(Qt.Key_Space);
        Bench.repeatKey(Qt.Key_Space, 5);
        verify(!Bench.model.isConverting);
        keyRelease(Qt.Key_Space);
        verify(Bench.model.isConverting);
        tryCompare(Bench.model, "overallProgress", 0.5);
        Bench.repeatKey(Qt.Key_Space, 5);
        keyRelease(Qt.Key_Space);
        verifyNotCancelled();
    }

    function test_aSpaceBarThatWentDownOnTheOtherButtonPressesNothing() {
        show(footers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        convertButton().forceActiveFocus(Qt.TabFocusReason);
        verify(Bench.convert());
        verify(cancelButtons()[0].activeFocus);
        keyPress(Qt.Key_Space);
        verify(Bench.goOn()); // to its end
        verify(convertButton().activeFocus);
        Bench.repeatKey(Qt.Key_Space, 5);
        keyRelease(Qt.Key_Space);
        verify(!Bench.model.isConverting);
        compare(Bench.model.alertMessage, "");
    }

    function test_everythingElseStaysEnabledWhileConverting() {
        show(footers);
        Bench.queue(["a.mp4"]);
        startConversion();
        verify(one(view, DestinationButton).enabled);
        verify(revealButtons()[0].enabled);
        mouseClick(one(view, DestinationButton));
        tryCompare(Bench, "openedPanels", ["Choose output folder"]);
    }

    function test_revealIsShownWithADestination() {
        show(footers);
        compare(revealButtons(), []);
        Bench.chooseDestination("/out");
        compare(revealButtons().length, 1);
        compare(one(revealButtons()[0], Symbol).name, Symbol.ArrowRightCircle);
        compare(texts(revealButtons()[0]), []);
        compare(Bench.revealedFolders, []);
        settle();
        compareTip(revealButtons()[0], 12, 12, "Show output folder");
        mouseClick(revealButtons()[0]);
        compare(Bench.revealedFolders, ["/out"]);
        revealButtons()[0].forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        compare(Bench.revealedFolders, ["/out", "/out"]);
        mouseClick(revealButtons()[0], 0, 12);
        mouseClick(revealButtons()[0], 23, 12);
        mouseClick(revealButtons()[0], 12, 0);
        mouseClick(revealButtons()[0], 12, 23);
        compare(Bench.revealedFolders.length, 6);
        Bench.chooseDestination("");
        compare(revealButtons(), []);
    }

    function test_measures() {
        Bench.queue(["a.mp4"]);
        Bench.chooseDestination("/out");
        show(footers);
        const line = one(view, Rectangle, item => item.height === 1 && item.width > 500);
        const destination = one(view, DestinationButton);
        const reveal = revealButtons()[0];
        const convert = convertButton();
        compareArea(line, 26, 0, 597, 1);
        inBothSchemes(() => compare(Pixels.at(line, 300, 0), Theme.current.separator));
        compare(area(destination.contentItem).x, 26);
        compare(gapBeside(destination.contentItem, one(reveal, Symbol)), 12);
        compare(gapBeside(one(reveal, Symbol), convert), 12);
        // What can be pressed is larger and covers nothing else.
        verify(reveal.width >= 24 && reveal.height >= 24);
        verify(gapBeside(destination, reveal) >= 0);
        verify(gapBeside(reveal, convert) >= 0);
        verify(gapBelow(line, destination) >= 0);
        compare(area(convert).x + convert.width, 649 - 26);
        compare(convert.height, 34);
        // In some fonts the two lines are a little higher than the button.
        const around = Math.max(0, destination.contentItem.height - 34) / 2;
        verify(around <= 2);
        fuzzyCompare(view.height - area(convert).y - convert.height, 22 + around, 0.51);
        fuzzyCompare(gapBelow(line, convert), 14 + around, 0.51);
        fuzzyCompare(middle(destination), middle(convert), 0.51);
        fuzzyCompare(middle(reveal), middle(convert), 0.51);
    }

    function test_theLabelIsAtLeast138Wide() {
        Bench.queue(["a.mp4"]);
        show(footers);
        const convert = convertButton();
        compare(convert.contentItem.width, 138);
        convert.text = "";
        settle();
        compare(convert.contentItem.width, 138);
        convert.text = Qt.binding(() => view.convertText);
        const wide = convert.width;
        Bench.queueMany(100000);
        settle();
        verify(convert.width > wide);
        verify(convert.contentItem.width > 138);
        verify(textOf(convert, "Convert 100001 Videos").width <= convert.contentItem.width);
    }

    function test_styles() {
        Bench.queue(["a.mp4"]);
        show(footers);
        verify(convertButton().isLarge);
        compare(one(convertButton(), Symbol).name, Symbol.BoltFill);
        compareFont(textOf(view, "Convert 1 Video"), 13, Font.DemiBold);
        inBothSchemes(() => {
            compare(Pixels.at(convertButton(), 5, 17), Theme.current.accentFill);
            compare(textOf(view, "Convert 1 Video").color, Theme.white);
        });
    }

    function test_tabOrder() {
        Bench.queue(["a.mp4"]);
        Bench.chooseDestination("/out");
        show(footers);
        one(view, DestinationButton).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(revealButtons()[0].visualFocus);
        keyClick(Qt.Key_Tab);
        verify(convertButton().visualFocus);
    }

    function test_readableInBothSchemes() {
        Bench.queue(["a.mp4"]);
        Bench.chooseDestination("/out");
        show(footers);
        inBothSchemes(() => verifyContrast(view, () => true));
        startConversion();
        inBothSchemes(() => verifyContrast(view, () => true));
    }
}
