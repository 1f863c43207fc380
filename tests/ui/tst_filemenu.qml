// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "FileMenu"

    Component {
        id: bars

        Rectangle {
            color: Theme.sidebarStart
            height: 300
            width: 310

            FileMenuBar {
                model: Bench.model
                width: parent.width
            }
        }
    }

    Component {
        id: menus

        DropMenu {
            T.Action {
                shortcut: "Ctrl+Shift+O"
                text: "An entry that is longer than the menu is wide by itself, as others may have"
            }

            T.Action {
                text: "Without a shortcut"
            }
        }
    }

    Component {
        id: fieldsAndBars

        Column {
            FileMenuBar {
                model: Bench.model
                width: 310
            }

            TextInput {
                width: 100
            }
        }
    }

    function fileButton() {
        return one(view, PlainButton);
    }

    function entries() {
        return all(overlay, DropMenuItem);
    }

    function open() {
        mouseClick(fileButton());
        tryVerify(() => entries().length > 0);
        settle();
    }

    function convert() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
    }

    function test_isClosedAtFirst() {
        show(bars);
        compare(texts(view), ["File"]);
        compare(entries(), []);
    }

    function test_entries() {
        show(bars);
        open();
        compare(entries().map(entry => entry.text), ["Add Videos\u2026", "Add Folder\u2026", "Quit"]);
        compare(texts(overlay), ["Add Videos\u2026", "Ctrl+O", "Add Folder\u2026", "Ctrl+Shift+O", "Quit", "Ctrl+Q"]);
        // What adds stands apart from what ends.
        compare(all(overlay, DropMenuSeparator).length, 1);
        for (const entry of entries())
            verify(entry.enabled);
    }

    function test_aLongEntryIsWhole() {
        show(bars);
        const menu = createTemporaryObject(menus, view);
        menu.open();
        tryVerify(() => menu.opened);
        settle();
        for (const text of all(overlay, Text, text => text.text !== ""))
            verify(text.contentWidth <= text.width + 0.5, text.text);
        const [entry, keys] = all(entries()[0], Text);
        verify(gapBeside(entry, keys) >= 24);
        verify(area(keys).x + keys.width <= area(entries()[0]).x + entries()[0].width - 10 + 0.5);
        menu.close();
        tryVerify(() => !menu.visible);
    }

    function test_aHeldKeyOnlyOpensIt_data() {
        return [
            {"tag": "Space", "key": Qt.Key_Space},
            {"tag": "Return", "key": Qt.Key_Return},
            {"tag": "Enter", "key": Qt.Key_Enter},
        ];
    }

    function test_aHeldKeyOnlyOpensIt(data) {
        show(bars);
        fileButton().forceActiveFocus(Qt.TabFocusReason);
        keyPress(data.key);
        Bench.repeatKey(data.key, 3);
        keyRelease(data.key);
        tryVerify(() => entries().length > 0);
        wait(50);
        compare(entries().length, 3);
        compare(Bench.openedPanels, []);
    }

    function test_shadow() {
        show(bars);
        open();
        const ground = one(overlay, Rectangle, item => Qt.colorEqual(item.color, Theme.dark.popup));
        verifyShadow(ground);
        compare(Pixels.at(ground, ground.width / 2, 2), Theme.dark.popup); // and not on it
    }

    function test_entriesOpenOnePanelEach_data() {
        return [
            {"tag": "Add Videos\u2026", "index": 0, "panel": "Choose videos to convert"},
            {"tag": "Add Folder\u2026", "index": 1, "panel": "Choose a folder of videos"},
        ];
    }

    function test_entriesOpenOnePanelEach(data) {
        show(bars);
        open();
        mouseClick(entries()[data.index]);
        tryVerify(() => Bench.openedPanels.length > 0);
        wait(0);
        compare(Bench.openedPanels, [data.panel]);
        tryVerify(() => entries().length === 0);
    }

    function test_entriesByKeyboard() {
        show(bars);
        fileButton().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        tryVerify(() => entries().length === 3);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        tryVerify(() => Bench.openedPanels.length > 0);
        compare(Bench.openedPanels, ["Choose a folder of videos"]);
    }

    function test_shortcuts_data() {
        const data = [];
        for (const isConverting of [false, true]) {
            const when = isConverting ? " while converting" : "";
            data.push({"tag": "Ctrl+O" + when, "modifiers": Qt.ControlModifier,
                       "panel": "Choose videos to convert", "isConverting": isConverting});
            data.push({"tag": "Ctrl+Shift+O" + when, "modifiers": Qt.ControlModifier | Qt.ShiftModifier,
                       "panel": "Choose a folder of videos", "isConverting": isConverting});
        }
        return data;
    }

    function test_shortcuts(data) {
        show(bars);
        if (data.isConverting)
            convert();
        Bench.answer(["/in/new.mp4"]);
        keyClick(Qt.Key_O, data.modifiers);
        tryVerify(() => Bench.openedPanels.length > 0);
        tryVerify(() => Bench.fileNames.includes("new.mp4"));
        compare(Bench.openedPanels, [data.panel]);
        compare(Bench.model.isConverting, data.isConverting);
    }

    function test_shortcutsWorkAgainAndAgain() {
        show(bars);
        open();
        keyClick(Qt.Key_Escape);
        tryVerify(() => entries().length === 0);
        for (let i = 1; i <= 3; ++i) {
            keyClick(Qt.Key_O, Qt.ControlModifier);
            tryVerify(() => Bench.openedPanels.length === i);
        }
    }

    function test_noOtherShortcutOpensAPanel() {
        show(bars);
        keyClick(Qt.Key_N, Qt.ControlModifier);
        keyClick(Qt.Key_O);
        keyClick(Qt.Key_O, Qt.AltModifier);
        keyClick(Qt.Key_N, Qt.ControlModifier | Qt.ShiftModifier);
        wait(20);
        compare(Bench.openedPanels, []);
        compare(Bench.windowCount, 1);
    }

    function test_openingAndClosing() {
        show(bars);
        open();
        mouseClick(fileButton());
        tryVerify(() => entries().length === 0);
        keyClick(Qt.Key_F, Qt.AltModifier);
        tryVerify(() => entries().length === 3);
        keyClick(Qt.Key_Escape);
        tryVerify(() => entries().length === 0);
        keyClick(Qt.Key_F10);
        tryVerify(() => entries().length === 3);
        mouseClick(view, 290, 280);
        tryVerify(() => entries().length === 0);
    }

    function test_theKeyboardComesBack() {
        show(fieldsAndBars);
        const field = one(view, TextInput);
        field.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_F10);
        tryVerify(() => entries().length === 3);
        verify(!field.activeFocus);
        keyClick(Qt.Key_Escape);
        tryVerify(() => entries().length === 0);
        tryVerify(() => field.activeFocus);
    }

    function test_buttonAndEntriesAnswerThePointer() {
        show(bars);
        const none = Qt.rgba(0, 0, 0, 0);
        const ground = fileButton().background;
        compare(ground.color, none);
        mouseMove(fileButton(), 5, 5);
        tryCompare(ground, "color", Qt.alpha(Theme.white, 0.11));
        restPointer();
        tryCompare(ground, "color", none);
        keyClick(Qt.Key_F10);
        tryVerify(() => entries().length > 0);
        compare(ground.color, Qt.alpha(Theme.white, 0.11)); // as long as the menu is open
        compare(area(entries()[0]).y, area(fileButton()).y + fileButton().height + 4 + 4);
        keyClick(Qt.Key_Down);
        const highlighted = entries().filter(entry => entry.highlighted);
        compare(highlighted.length, 1);
        for (const entry of entries())
            compare(entry.background.color, entry.highlighted ? Theme.dark.accentFill : none);
        keyClick(Qt.Key_Escape);
        tryVerify(() => entries().length === 0);
        fileButton().forceActiveFocus(Qt.TabFocusReason);
        compare(all(fileButton(), FocusRing).length, 1);
    }

    function test_entriesAreWorkedByAssistiveTechnology() {
        show(bars);
        const bar = one(view, FileMenuBar);
        compare([bar.Accessible.role, bar.Accessible.name], [Accessible.MenuBar, "Menu bar"]);
        compare(fileButton().Accessible.role, Accessible.ButtonMenu);
        open();
        compare(entries().map(entry => entry.Accessible.name), entries().map(entry => entry.text));
        const entry = entries()[1];
        Assistant.act(entry, "Press");
        tryCompare(Bench, "openedPanels", ["Choose a folder of videos"]);
        // Once the menu is closed there is nothing to press.
        tryVerify(() => entries().length === 0);
        Assistant.act(entry, "Press");
        wait(20);
        compare(Bench.openedPanels.length, 1);
        view.enabled = false;
        compare(Assistant.description(fileButton()), "unavailable");
        Assistant.act(fileButton(), "Press");
        wait(20);
        compare(entries(), []);
    }

    function test_readableInBothSchemes() {
        show(bars);
        inBothSchemes(() => verifyContrast(view));
        open();
        inBothSchemes(() => verifyContrast(overlay));
        mouseMove(entries()[0], 20, 10);
        mouseMove(entries()[0], 22, 12);
        tryVerify(() => entries()[0].highlighted);
        inBothSchemes(() => verifyContrast(overlay));
    }
}
