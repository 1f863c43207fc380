// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The menu of a row.
JobListTest {
    id: test

    name: "JobMenu"

    readonly property string showVideo: "Show Video in File Manager"
    readonly property string showConverted: "Show Converted File in File Manager"

    function row(index) {
        return list().itemAtIndex(index);
    }

    function entries() {
        return all(overlay, DropMenuItem);
    }

    function waitUntilClosed() {
        tryVerify(() => entries().length === 0);
    }

    /// What the menu shows from top to bottom: its entries with their keys, and "-" for a line.
    function shown() {
        const isPart = item => item instanceof DropMenuItem || item instanceof DropMenuSeparator;
        return all(overlay, T.Control, isPart).sort((a, b) => area(a).y - area(b).y)
            .map(item => texts(item).join(" | ") || "-");
    }

    /// Opens the menu of the row by the mouse; what it shows.
    function open(index) {
        settle();
        mouseClick(row(index), 200, 20, Qt.RightButton);
        tryVerify(() => entries().length > 0);
        settle();
        return shown();
    }

    function choose(text) {
        mouseClick(entries().find(entry => entry.text === text));
        waitUntilClosed();
    }

    /// One that failed, one that is complete and one that waits.
    function showThree() {
        Bench.queue(["failed.mkv", "complete.mkv", "waiting.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail("No space left\non device");
        Bench.willComplete();
        Bench.willBeCancelled();
        verify(Bench.convert());
        Bench.model.requeue(row(2).job.id);
        settle();
    }

    function test_entriesOfEveryState() {
        showThree();
        compare(open(0), ["Move Down | Alt+Down", "-", showVideo, "-", "Copy Message | Ctrl+C", "-", "Remove | Delete"]);
        keyClick(Qt.Key_Escape);
        waitUntilClosed();
        compare(open(1), ["Queue Again", "-", "Move Up | Alt+Up", "Move Down | Alt+Down", "-", showVideo,
                          showConverted, "-", "Remove | Delete"]);
        keyClick(Qt.Key_Escape);
        waitUntilClosed();
        compare(open(2), ["Move Up | Alt+Up", "-", showVideo, "-", "Remove | Delete"]);
        verify(row(2).activeFocus || list().currentIndex === 2);
    }

    function test_entriesWhileConverting() {
        Bench.queue(["a.mkv", "b.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        Bench.willComplete();
        verify(Bench.convert());
        compare(open(0), [showVideo]);
        keyClick(Qt.Key_Escape);
        waitUntilClosed();
        compare(open(1), [showVideo, "-", "Remove | Delete"]);
        // What it says does not apply any more.
        verify(Bench.goOn());
        waitUntilClosed();
    }

    function test_entriesDoWhatTheySay() {
        showThree();
        open(1);
        choose("Move Up");
        compare(Bench.fileNames, ["complete.mkv", "failed.mkv", "waiting.mkv"]);
        open(0);
        choose("Move Down");
        compare(Bench.fileNames, ["failed.mkv", "complete.mkv", "waiting.mkv"]);
        open(0);
        choose(showVideo);
        compare(list().currentIndex, 0); // and not the row below the entry
        open(1);
        choose(showConverted);
        compare(Bench.revealedFolders.length, 2);
        compare(Bench.revealedFolders[0], "/in/failed.mkv");
        verify(Bench.revealedFolders[1].endsWith("/complete_converted.mp4"), Bench.revealedFolders[1]);
        open(0);
        choose("Copy Message");
        compare(pasted(), "No space left\non device");
        open(1);
        choose("Queue Again");
        compare(Bench.model.completedCount, 0);
        open(1);
        choose("Remove");
        compare(Bench.fileNames, ["failed.mkv", "waiting.mkv"]);
    }

    function test_copiesARemark() {
        Bench.queue(["complete.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willEndEarly();
        verify(Bench.convert());
        open(0);
        choose("Copy Message");
        compare(pasted(), "The source ends early: 0:06 of 0:10.");
    }

    function test_byKeyboard_data() {
        return [
            {"tag": "menu key", "key": Qt.Key_Menu, "modifiers": Qt.NoModifier},
            {"tag": "Shift+F10", "key": Qt.Key_F10, "modifiers": Qt.ShiftModifier},
            {"tag": "Return", "key": Qt.Key_Return, "isOfTheRow": true},
            {"tag": "Enter", "key": Qt.Key_Enter, "modifiers": Qt.KeypadModifier, "isOfTheRow": true},
            {"tag": "Space", "key": Qt.Key_Space, "isOfTheRow": true},
        ];
    }

    function test_byKeyboard(data) {
        Bench.queue(["a.mkv", "b.mkv", "c.mkv"]);
        show(lists);
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        if (data.isOfTheRow) {
            Bench.repeatKey(data.key, 1); // which went down elsewhere
            compare(entries(), []);
        }
        // However long it is held.
        keyPress(data.key, data.modifiers);
        Bench.repeatKey(data.key, 3);
        keyRelease(data.key, data.modifiers);
        tryVerify(() => entries().length === 4);
        keyClick(Qt.Key_Escape);
        waitUntilClosed();
        tryVerify(() => row(1).activeFocus);
        if (data.isOfTheRow) { // and would press a button of it
            keyClick(Qt.Key_Tab);
            keyClick(data.key, data.modifiers);
            compare(Bench.fileNames, ["b.mkv", "a.mkv", "c.mkv"]);
            compare(entries(), []);
            return;
        }
        // Also from a button of the row, where it was.
        keyClick(Qt.Key_Tab);
        const button = focusItem();
        compare(button.text, "Move up");
        keyClick(data.key, data.modifiers);
        tryVerify(() => entries().length === 4);
        keyClick(Qt.Key_Escape);
        waitUntilClosed();
        tryVerify(() => button.activeFocus);
        // And it is worked by it.
        keyClick(data.key, data.modifiers);
        tryVerify(() => entries().length === 4);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        waitUntilClosed();
        compare(Bench.fileNames, ["b.mkv", "a.mkv", "c.mkv"]);
    }

    function test_firstLettersGoToEntries() {
        showThree();
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Menu);
        tryVerify(() => entries().length > 0);
        const press = (key, text) => {
            keyClick(key);
            compare(entries().filter(entry => entry.highlighted).map(entry => entry.text), [text]);
            compare(focusItem().text, text);
        };
        press(Qt.Key_M, "Move Up");
        press(Qt.Key_M, "Move Down");
        press(Qt.Key_M, "Move Up");
        press(Qt.Key_Down, "Move Down");
        press(Qt.Key_C, "Move Down"); // there is no message to copy
        keyClick(Qt.Key_Escape);
        waitUntilClosed();
        // The only one is not chosen by that either, and the space bar chooses where it finds nothing.
        keyClick(Qt.Key_Menu);
        tryVerify(() => entries().length > 0);
        for (const key of "show")
            press(key, showVideo);
        press(Qt.Key_Space, showVideo);
        press("c", showConverted);
        compare(Bench.revealedFolders, []);
        keyClick(Qt.Key_Space);
        waitUntilClosed();
        compare(Bench.revealedFolders.length, 1);
    }

    function test_aPressElsewhereClosesIt() {
        Bench.queue(["a.mkv", "b.mkv"]);
        show(lists);
        open(0);
        mouseClick(view, 300, 440);
        waitUntilClosed();
        open(1);
        mouseClick(row(0), 400, 20, Qt.RightButton);
        tryVerify(() => entries().length > 0 && entries()[0].text === "Move Down");
        // Where there is no row there is no menu.
        keyClick(Qt.Key_Escape);
        waitUntilClosed();
        mouseClick(view, 300, 440, Qt.RightButton);
        wait(20);
        compare(entries(), []);
    }

    function test_itGoesWithItsRow() {
        Bench.queue(["a.mkv", "b.mkv"]);
        show(lists);
        open(1);
        Bench.model.remove(row(1).job.id);
        waitUntilClosed();
    }

    function test_entriesAreWorkedByAssistiveTechnology() {
        Bench.queue(["a.mkv", "b.mkv"]);
        show(lists);
        settle();
        Assistant.act(row(1), "Press");
        tryVerify(() => entries().length > 0);
        compare(entries().map(entry => entry.Accessible.name), ["Move Up", showVideo, "Remove"]);
        Assistant.act(entries().find(entry => entry.text === "Remove"), "Press");
        tryCompare(Bench, "fileNames", ["a.mkv"]);
    }

    function test_readableInBothSchemes() {
        showThree();
        open(1);
        inBothSchemes(() => verifyContrast(overlay));
        mouseMove(entries()[1], 20, 10);
        mouseMove(entries()[1], 22, 12);
        tryVerify(() => entries()[1].highlighted);
        inBothSchemes(() => verifyContrast(overlay));
    }
}
