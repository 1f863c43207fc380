// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// A row that is dragged while the list changes or scrolls.
ReorderTest {
    name: "ReorderingList"

    function test_endsWhenItsRowGoes() {
        showRows(5);
        drag(3, rowHeight);
        Bench.model.remove(row(3).job.id);
        tryVerify(() => lifted().length === 0);
        letGo();
        compare(names(), [1, 2, 4, 5]);
    }

    function test_endsWhenAllRowsAreShownAnew() {
        showRows(2100);
        Bench.completeEverySecond();
        settle();
        drag(3, rowHeight);
        compare(lifted().length, 1);
        Bench.model.clearCompleted(); // too many at once to be followed
        compare(Bench.model.jobCount, 1050);
        tryVerify(() => lifted().length === 0);
        const order = names();
        letGo();
        compare(names(), order);
    }

    function test_aRowThatGoesDoesNotDisturbIt() {
        showRows(5);
        drag(3, rowHeight);
        Bench.model.remove(row(1).job.id);
        settle();
        compare(lifted().length, 1);
        compare(row(3).opacity, 0);
        letGo();
        // To the place that it is over, which is another row's now.
        compare(names(), [2, 4, 5, 3]);
        compare([2, 4, 5, 3].map(number => row(number).opacity), [1, 1, 1, 1]);
    }

    function test_aRowThatIsMovedByAKeyDoesNotDisturbIt_data() {
        return [
            {"tag": "from below to above", "moved": 5, "key": "Move up", "times": 4, "order": [5, 1, 3, 2, 4]},
            {"tag": "from above to below", "moved": 1, "key": "Move down", "times": 4, "order": [3, 4, 5, 2, 1]},
            {"tag": "itself", "moved": 2, "key": "Move down", "times": 3, "order": [1, 3, 4, 2, 5]},
        ];
    }

    function test_aRowThatIsMovedByAKeyDoesNotDisturbIt(data) {
        showRows(5);
        const button = one(row(data.moved), SymbolButton, b => b.text === data.key);
        drag(2, 2 * rowHeight);
        for (let i = 0; i < data.times; ++i) {
            button.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
        }
        settle();
        compare(lifted().length, 1);
        letGo();
        compare(names(), data.order);
        compare(names().map(number => row(number).opacity), [1, 1, 1, 1, 1]);
    }

    // Before the window has had the time to show what has changed.
    function test_isTheSameRowWhenItIsLetGoAtOnce() {
        showRows(5);
        drag(2, 2 * rowHeight);
        Bench.model.moveJob(row(5).job.id, -4);
        mouseRelease(view, 216, pointerY);
        compare(names(), [5, 1, 3, 2, 4]);
    }

    function test_newRowsDoNotDisturbIt() {
        showRows(3);
        drag(1, rowHeight);
        Bench.queue(["clip9.mov"]);
        compare(lifted().length, 1);
        letGo();
        compare(names(), [2, 1, 3, 9]);
    }

    function test_partsRowsThatComeBelowIt() {
        showRows(3);
        const tops = [1, 2, 3].map(shownTop);
        drag(1, 3 * rowHeight);
        tryTops([2, 3], [tops[0], tops[1]]);
        Bench.queue(["clip8.mov", "clip9.mov"]);
        settle();
        tryTops([2, 3, 8, 9], [tops[0], tops[1], tops[2], tops[2] + 2 * rowHeight]);
        letGo();
        compare(names(), [2, 3, 8, 1, 9]);
    }

    function test_scrollsAtTheEdges() {
        showRows(60);
        drag(1, 20);
        dragTo(pointerY, 450);
        tryVerify(() => list().contentY > 600, 5000);
        compare(lifted().length, 1);
        verify(area(lifted()[0]).y + rowHeight <= 460.5);
        dragTo(450, 230);
        wait(40);
        const still = list().contentY;
        wait(60);
        compare(list().contentY, still);
        dragTo(230, 5);
        tryVerify(() => list().atYBeginning, 5000);
        dragTo(5, 450);
        tryVerify(() => list().contentY > 600, 5000);
        dragTo(450, 230);
        letGo();
        const at = names().indexOf(1);
        verify(at >= 10, at);
        compare(jobs.count, 1);
        compare(names().filter(number => number !== 1), Array.from({"length": 59}, (_, i) => i + 2));
        // It lies where it was let go.
        fuzzyCompare(shownTop(1) + rowHeight / 2, 230, rowHeight);
    }

    function test_aQuickDragMovesTheRowAlone() {
        showRows(40);
        const still = list().contentY;
        const start = shownTop(6) + rowHeight / 2;
        mousePress(view, 216, start);
        for (let i = 1; i <= 4; ++i)
            mouseMove(view, 216, start - i * rowHeight / 2, 5, Qt.LeftButton);
        pointerY = start - 2 * rowHeight;
        wait(200);
        compare(list().contentY, still);
        letGo();
        wait(200);
        compare(list().contentY, still);
        compare(names().slice(0, 7), [1, 2, 3, 6, 4, 5, 7]);
        verify(list().interactive); // it scrolls on
    }

    function test_goesWithTheWheel() {
        showRows(60);
        drag(2, 20);
        dragTo(pointerY, 230);
        for (const turn of [-3, 1]) {
            const former = list().contentY;
            for (let i = 0; i < Math.abs(turn); ++i)
                mouseWheel(view, 216, 230, 0, 120 * Math.sign(turn), Qt.LeftButton);
            tryVerify(() => list().contentY !== former && !list().moving);
        }
        verify(list().contentY > rowHeight, list().contentY);
        compare(lifted().length, 1);
        letGo();
        verify(names().indexOf(2) > 4, names().indexOf(2));
        fuzzyCompare(shownTop(2) + rowHeight / 2, 230, rowHeight / 2 + 1);
    }

    function test_scrollsToTheVeryEnd() {
        showRows(30);
        drag(1, 20);
        dragTo(pointerY, 455);
        tryVerify(() => list().atYEnd, 5000);
        wait(50);
        letGo();
        compare(names()[29], 1);
        verify(list().atYEnd);
    }

    function test_doesNotScrollAShortList() {
        showRows(3);
        const still = list().contentY;
        drag(1, 20);
        dragTo(pointerY, 455);
        wait(100);
        compare(list().contentY, still);
        letGo();
        compare(names(), [2, 3, 1]);
    }
}
