// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "QueueHeader"

    Component {
        id: headers

        QueueHeader {
            model: Bench.model
            width: 649
        }
    }

    SignalSpy {
        id: jobs

        signalName: "jobsChanged"
    }

    function button(text) {
        return one(view, BorderedButton, button => button.text === text);
    }

    function clearButtons() {
        return all(view, BorderlessButton);
    }

    function subtitle() {
        return texts(view)[1];
    }

    function test_emptyQueue() {
        show(headers);
        compare(texts(view), ["Conversion Queue", "Add AV1, MP4, MKV, WebM, or MOV files", "Folder",
                              "Add Videos"]);
    }

    function test_counts() {
        show(headers);
        Bench.queue(["a.mp4"]);
        compare(subtitle(), "1 video \u00b7 0 complete");
        Bench.queue(["b.mp4"]);
        compare(subtitle(), "2 videos \u00b7 0 complete");
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("No.");
        verify(Bench.convert());
        compare(subtitle(), "2 videos \u00b7 1 complete");
        Bench.willComplete();
        verify(Bench.convert());
        compare(subtitle(), "2 videos \u00b7 2 complete");
        Bench.model.clearCompleted();
        compare(subtitle(), "Add AV1, MP4, MKV, WebM, or MOV files");
    }

    function test_countsHaveNoGrouping() {
        Bench.queueMany(12345);
        show(headers);
        compare(subtitle(), "12345 videos \u00b7 0 complete");
    }

    function test_oneCompletedVideo() {
        show(headers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        compare(subtitle(), "1 video \u00b7 1 complete");
        compare(clearButtons().length, 1);
    }

    function test_clearCompletedIsShownWhileThereIsSomethingToClear() {
        show(headers);
        compare(clearButtons(), []);
        Bench.queue(["a.mp4", "b.mp4", "c.mp4"]);
        compare(clearButtons(), []);
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("No.");
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        compare(Bench.model.completedCount, 1);
        verify(Bench.model.isConverting);
        compare(clearButtons(), []);
        verify(Bench.goOn());
        verify(!Bench.model.isConverting);
        compare(clearButtons().length, 1);
        compare(clearButtons()[0].text, "Clear Completed");
    }

    function test_clearCompleted_data() {
        return [
            {"tag": "click", "press": () => mouseClick(clearButtons()[0])},
            {"tag": "Return", "press": () => keyClick(Qt.Key_Return)},
            {"tag": "Space", "press": () => keyClick(Qt.Key_Space)},
        ];
    }

    function test_clearCompleted(data) {
        show(headers);
        Bench.queue(["a.mp4", "b.mp4", "c.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("No.");
        Bench.willComplete();
        verify(Bench.convert());
        settle();
        clearButtons()[0].forceActiveFocus(Qt.TabFocusReason);
        jobs.target = Bench.model;
        jobs.clear();
        data.press();
        compare(jobs.count, 1);
        compare(Bench.fileNames, ["b.mp4"]);
        compare(clearButtons(), []);
    }

    function test_theKeyboardGoesOnFromClearCompleted_data() {
        return [
            {"tag": "shown", "reason": Qt.TabFocusReason, "isShown": true},
            {"tag": "not shown", "reason": Qt.MouseFocusReason, "isShown": false},
        ];
    }

    function test_theKeyboardGoesOnFromClearCompleted(data) {
        show(headers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        settle();
        clearButtons()[0].forceActiveFocus(data.reason);
        keyClick(Qt.Key_Space);
        compare(clearButtons(), []);
        verify(button("Folder").activeFocus);
        compare(button("Folder").visualFocus, data.isShown);
    }

    function test_theKeyboardStaysWhenClearCompletedGoes() {
        show(headers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        button("Add Videos").forceActiveFocus(Qt.TabFocusReason);
        Bench.model.clearCompleted();
        verify(button("Add Videos").visualFocus);
    }

    function test_buttonsOpenOnePanelEach_data() {
        return [
            {"tag": "Folder", "panel": "Choose a folder of videos"},
            {"tag": "Add Videos", "panel": "Choose videos to convert"},
        ];
    }

    function test_buttonsOpenOnePanelEach(data) {
        show(headers);
        mouseClick(button(data.tag));
        tryVerify(() => Bench.openedPanels.length > 0);
        compare(Bench.openedPanels, [data.panel]);
        button(data.tag).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        tryVerify(() => Bench.openedPanels.length > 1);
        compare(Bench.openedPanels, [data.panel, data.panel]);
    }

    function test_aHeldKeyOpensOnePanel() {
        show(headers);
        for (const key of [Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space]) {
            const opened = Bench.openedPanels.length;
            button("Folder").forceActiveFocus(Qt.TabFocusReason);
            keyPress(key);
            Bench.repeatKey(key, 4);
            keyRelease(key);
            tryVerify(() => Bench.openedPanels.length > opened);
            wait(20);
            compare(Bench.openedPanels.length, opened + 1);
        }
    }

    function test_buttonsAddWhatIsChosen() {
        show(headers);
        Bench.answer(["/in/b.mp4", "/in/a.mkv", "/in/notes.txt"]);
        mouseClick(button("Add Videos"));
        tryVerify(() => Bench.fileNames.length > 0);
        compare(Bench.fileNames, ["a.mkv", "b.mp4"]);
    }

    function test_buttonsWorkWhileConverting() {
        show(headers);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        for (const text of ["Folder", "Add Videos"]) {
            verify(button(text).enabled);
            mouseClick(button(text));
        }
        tryCompare(Bench, "openedPanels", ["Choose a folder of videos", "Choose videos to convert"]);
        verify(Bench.model.isConverting);
    }

    function test_measures() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        show(headers);
        const title = textOf(view, "Conversion Queue");
        const line = textOf(view, subtitle());
        const clear = clearButtons()[0];
        const folder = button("Folder");
        const add = button("Add Videos");
        // The column of texts is higher than the buttons.
        compare(area(title).x, 26);
        compare(area(title).y, 27);
        compare(area(line).x, 26);
        compare(gapBelow(title, line), 3);
        compare(area(line).y + line.height, view.height - 20);
        const center = 27 + (view.height - 47) / 2;
        for (const control of [clear, folder, add])
            fuzzyCompare(middle(control), center, 0.51);
        compare(gapBeside(clear, folder), 8);
        compare(gapBeside(folder, add), 8);
        compare(area(add).x + add.width, 649 - 26);
    }

    function test_clearCompletedMovesNothing_data() {
        const data = [];
        for (const family of ["Noto Sans", "DejaVu Sans", "Cantarell", "Inter"]) {
            for (const points of [9, 10, 11, 12, 13, 14, 16])
                data.push({"tag": `${family} ${points}`, "family": family, "points": points});
        }
        return data;
    }

    // Neither as it comes nor as it goes.
    function test_clearCompletedMovesNothing(data) {
        Bench.setFont(data.family, data.points);
        Bench.queue(["a.mp4", "b.mp4"]);
        show(headers);
        const shown = all(view, Text).concat(button("Folder"), button("Add Videos"));
        const places = () => [view.height].concat(shown.map(item => area(item).x), shown.map(middle));
        const before = places();
        Bench.completeEverySecond();
        settle();
        compare(places(), before);
        const clear = clearButtons()[0];
        verify(area(clear).x >= 26 && gapBeside(clear, button("Folder")) === 8);
        compare(all(view, Text, text => text.truncated), []);
        Bench.model.clearCompleted();
        settle();
        compare(clearButtons(), []);
        compare(places(), before);
    }

    function test_styles() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        show(headers);
        compareFont(textOf(view, "Conversion Queue"), 17, Font.Bold);
        compareFont(textOf(view, subtitle()), 12, Font.Normal);
        verify(!(button("Folder") instanceof ProminentButton));
        verify(button("Add Videos") instanceof ProminentButton);
        verify(!button("Add Videos").isLarge);
        compare(one(button("Folder"), Symbol).name, Symbol.FolderBadgePlus);
        compare(one(button("Add Videos"), Symbol).name, Symbol.Plus);
        compare(all(clearButtons()[0], Symbol), []);
        inBothSchemes(() => {
            compare(textOf(view, "Conversion Queue").color, Theme.current.text);
            compare(textOf(view, subtitle()).color, Theme.current.secondary);
            compare(Pixels.at(button("Add Videos"), 4, 13), Theme.current.accentFill);
            // Without a bezel there is the window.
            compare(Pixels.at(clearButtons()[0], 2, 13), Theme.current.window);
            compare(Pixels.at(clearButtons()[0], 2, 0), Theme.current.window);
            verify(!Qt.colorEqual(Pixels.at(button("Folder"), 20, 0), Theme.current.window));
        });
    }

    /// What the control's ground is in while the pointer is elsewhere, is on it and holds it down.
    function compareGround(control, atRest, hovered, pressed) {
        const ground = control.background;
        compare(ground.color, atRest);
        mouseMove(control, control.width / 2, control.height / 2);
        tryCompare(ground, "color", hovered);
        mousePress(control, control.width / 2, control.height / 2);
        compare(ground.color, pressed);
        // Where it is let go it is no click.
        mouseMove(view, view.width - 1, view.height - 1, -1, Qt.LeftButton);
        mouseRelease(view, view.width - 1, view.height - 1);
        restPointer();
        tryCompare(ground, "color", atRest);
    }

    /// That the control shows the keyboard, but not the mouse, where it is.
    function verifyRing(control) {
        compare(all(control, FocusRing).length, 0);
        control.forceActiveFocus(Qt.TabFocusReason);
        compare(all(control, FocusRing).length, 1);
        control.focus = false;
        control.forceActiveFocus(Qt.MouseFocusReason);
        compare(all(control, FocusRing).length, 0);
        control.focus = false;
    }

    function test_buttonsAnswerThePointerAndTheKeyboard() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        show(headers);
        inBothSchemes(() => {
            const colors = Theme.current;
            compareGround(button("Folder"), colors.control, colors.controlHovered, colors.controlPressed);
            compare(button("Folder").background.border.color, colors.controlBorder);
            compareGround(button("Add Videos"), colors.accentFill, colors.accentFillHovered, colors.accentFillPressed);
            compareGround(button("Clear Completed"), Qt.rgba(0, 0, 0, 0), colors.rowHovered, colors.rowPressed);
            compare(textOf(view, "Clear Completed").color, colors.accent);
        });
        for (const text of ["Folder", "Add Videos", "Clear Completed"])
            verifyRing(button(text));
        compare(Bench.openedPanels, []);
    }

    // Two wide, and two beyond the button.
    function test_theRingIsApartFromItsButton() {
        show(headers);
        const folder = button("Folder");
        folder.forceActiveFocus(Qt.TabFocusReason);
        settle();
        const isRing = y => Qt.colorEqual(Pixels.at(folder, folder.width / 2, y), Theme.current.accent);
        compare([-5, -4, -3, -2, -1].map(isRing), [false, true, true, false, false]);
    }

    function test_longCountsDoNotPushTheButtonsOut() {
        Bench.queueMany(12345);
        show(headers);
        view.width = 330;
        settle();
        const add = button("Add Videos");
        verify(area(add).x + add.width <= 330 - 26);
        const line = textOf(view, subtitle());
        verify(gapBelow(line, add) > 0);
        verify(area(line).x + line.width <= 330 - 26);
        view.width = 649;
        settle();
        compare(area(add).x + add.width, 649 - 26);
        verify(gapBeside(line, button("Folder")) >= 0);
    }

    function test_tabOrder() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        show(headers);
        clearButtons()[0].forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(button("Folder").visualFocus);
        keyClick(Qt.Key_Tab);
        verify(button("Add Videos").visualFocus);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(button("Folder").visualFocus);
    }

    function test_readableInBothSchemes() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        show(headers);
        inBothSchemes(() => verifyContrast(view, () => true));
    }
}
