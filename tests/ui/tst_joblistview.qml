// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The list by the keyboard.
JobListTest {
    id: test

    name: "JobListView"

    function compareCurrent(index) {
        compare(list().currentIndex, index);
        settle();
        tryVerify(() => list().currentItem && isInSight(list().currentItem), 1000,
                  "at " + index + ": " + area(list().currentItem, list()));
        verify(list().currentItem.activeFocus);
        compare(list().currentItem.job.fileName, "clip" + (index + 1) + ".mov");
    }

    function test_theFirstIsCurrent() {
        showRows(5);
        compareCurrent(0);
        compare(all(view, FocusRing).length, 1);
    }

    function test_upAndDown() {
        showRows(30);
        keyClick(Qt.Key_Up);
        compareCurrent(0);
        for (let i = 1; i < 30; ++i) {
            keyClick(Qt.Key_Down);
            compareCurrent(i);
        }
        keyClick(Qt.Key_Down);
        compareCurrent(29);
        keyClick(Qt.Key_Up);
        compareCurrent(28);
    }

    function test_homeAndEnd() {
        showRows(1000);
        keyClick(Qt.Key_End);
        compareCurrent(999);
        keyClick(Qt.Key_Home);
        compareCurrent(0);
    }

    function test_pages() {
        showRows(40);
        keyClick(Qt.Key_PageDown);
        const page = list().currentIndex;
        verify(page >= 5 && page <= 8, page);
        compareCurrent(page);
        keyClick(Qt.Key_PageDown);
        compareCurrent(2 * page);
        keyClick(Qt.Key_PageUp);
        compareCurrent(page);
        keyClick(Qt.Key_PageUp);
        keyClick(Qt.Key_PageUp);
        compareCurrent(0);
        for (let i = 0; i < 10; ++i)
            keyClick(Qt.Key_PageDown);
        compareCurrent(39);
    }

    function test_lettersGoToTheRowWhoseFileNameBeginsSo() {
        showRows(300);
        mouseClick(list().itemAtIndex(2), 200, 20);
        keyClick("C");
        compareCurrent(3);
        compare(all(view, FocusRing).length, 1);
        for (const letter of "lip250")
            keyClick(letter);
        compareCurrent(249);
        // From a button of the row, and anew.
        keyClick(Qt.Key_Tab);
        wait(1100);
        keyClick("c");
        compareCurrent(250);
    }

    /// That there is a row to see wherever the list has one.
    function verifyRowsAreShown() {
        settle();
        for (let y = 10; y < list().height - 10; y += 56) {
            const index = list().indexAt(list().width / 2, list().contentY + y);
            const row = list().itemAtIndex(index) as JobRow;
            verify(row, `no row ${index}`);
            verify(row.visible, `row ${index} is hidden`);
            compare(row.job.fileName, "clip" + (index + 1) + ".mov");
        }
    }

    // Rows that have gone out of sight are used again.
    function test_rowsFarAwayAreShown() {
        showRows(300);
        for (let i = 0; i < 5; ++i) {
            list().contentY += 700;
            verifyRowsAreShown();
        }
        keyClick(Qt.Key_End);
        verifyRowsAreShown();
        keyClick(Qt.Key_Home);
        verifyRowsAreShown();
    }

    function areRowsStackedInOrder() {
        const rows = all(list().contentItem, JobRow);
        // The current row is kept wherever it is; those that wait to be used again are not read.
        const current = list().currentIndex;
        const indices = rows.map(row => row.index);
        return rows.length >= 5 && indices.slice(1).every((index, i) => {
            const isNext = index === indices[i] + 1;
            return index > indices[i] && (isNext || indices[i] === current || index === current);
        });
    }

    // As assistive technology reads them, once the rows beyond both ends are there, too.
    function verifyRowsAreStackedInOrder() {
        settle();
        tryVerify(areRowsStackedInOrder);
    }

    function test_rowsAreReadInTheirOrder() {
        showRows(300);
        verifyRowsAreStackedInOrder();
        Bench.model.moveJob(list().itemAtIndex(4).job.id, -3);
        verifyRowsAreStackedInOrder();
        for (const y of [700, 1400, 9000, 8000, 400]) {
            list().contentY = y;
            verifyRowsAreStackedInOrder();
        }
        keyClick(Qt.Key_End);
        verifyRowsAreStackedInOrder();
        keyClick(Qt.Key_Home);
        verifyRowsAreStackedInOrder();
    }

    function test_rowsKeepClearOfTheListsEnds() {
        showRows(30);
        fuzzyCompare(area(list().itemAtIndex(0)).y, 6, 0.51);
        for (let i = 0; i < 20; ++i)
            mouseWheel(list(), 300, 200, 0, -1200);
        tryVerify(() => list().atYEnd && !list().moving);
        settle();
        fuzzyCompare(area(list().itemAtIndex(29)).y + 56, 460 - 6, 0.51);
    }

    function test_rowsAreCutAtTheListsEnds() {
        showRows(30);
        list().contentY = 340;
        settle();
        const handle = symbolOf(list().itemAtIndex(14), Symbol.Lines); // just below the end
        verify(area(handle).y >= 460 && area(handle).y < 480);
        compare(Pixels.count(handle, Theme.current.window), handle.width * handle.height);
    }

    // With a finger; the mouse moves rows.
    function test_stopsAtItsEnds() {
        showRows(30);
        const start = list().contentY;
        const touch = touchEvent(list());
        touch.press(0, list(), 300, 100).commit();
        for (let y = 110; y <= 300; y += 10) {
            touch.move(0, list(), 300, y).commit();
            compare(list().contentY, start);
        }
        touch.release(0, list(), 300, 300).commit();
    }

    function test_scrollsByTouch() {
        showRows(30);
        const finger = touchEvent(list());
        finger.press(0, list(), 300, 400).commit();
        for (let y = 390; y >= 100; y -= 10)
            finger.move(0, list(), 300, y).commit();
        verify(list().contentY > 200, list().contentY);
        finger.release(0, list(), 300, 100).commit();
    }

    function test_theCurrentRowComesIntoSightWithTheKeyboard() {
        showRows(30);
        list().currentItem.focus = false;
        list().contentY = 700;
        settle();
        list().currentItem.forceActiveFocus(Qt.BacktabFocusReason);
        compareCurrent(0);
    }

    function test_tabGoesThroughTheCurrentRowOnly() {
        showRows(5);
        keyClick(Qt.Key_Down);
        compareCurrent(1);
        const seen = [];
        for (let i = 0; i < 3; ++i) {
            keyClick(Qt.Key_Tab);
            seen.push(focusItem().text);
            let owner = focusItem();
            while (!(owner instanceof JobRow))
                owner = owner.parent;
            compare(owner.job.fileName, "clip2.mov");
        }
        compare(seen, ["Move up", "Move down", "Remove from queue"]);
        keyClick(Qt.Key_Tab);
        verify(!(focusItem() instanceof SymbolButton));
    }

    function test_tabPassesByWhatWasRemoved() {
        showRows(4);
        keyClick(Qt.Key_Down);
        Bench.model.remove(list().currentItem.job.id);
        settle();
        const current = list().currentItem;
        compare(current.job.fileName, "clip3.mov");
        current.forceActiveFocus(Qt.TabFocusReason);
        for (let i = 0; i < 3; ++i) {
            keyClick(Qt.Key_Tab);
            verify(all(current, SymbolButton).includes(focusItem()));
        }
        for (let i = 0; i < 3; ++i)
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(current.activeFocus);
        for (let i = 0; i < 5; ++i) {
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
            for (let item = focusItem(); item; item = item.parent)
                verify(!(item instanceof JobRow) || item === current, `${item}`);
        }
    }

    function test_arrowsFromAButton() {
        showRows(5);
        keyClick(Qt.Key_Tab);
        compare(focusItem().text, "Move up");
        keyClick(Qt.Key_End);
        compare(list().currentIndex, 4);
        verify(isInSight(list().currentItem));
    }
}
