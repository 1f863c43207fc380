// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// Rows that are dragged with the mouse.
ReorderTest {
    name: "RowReorder"

    function test_drop_data() {
        return [
            {"tag": "one down", "row": 2, "by": 1, "order": [1, 3, 2, 4, 5]},
            {"tag": "one up", "row": 2, "by": -1, "order": [2, 1, 3, 4, 5]},
            {"tag": "to the end", "row": 1, "by": 4, "order": [2, 3, 4, 5, 1]},
            {"tag": "to the beginning", "row": 5, "by": -4, "order": [5, 1, 2, 3, 4]},
            {"tag": "below the end", "row": 3, "by": 3.4, "order": [1, 2, 4, 5, 3]},
            {"tag": "hardly over half", "row": 2, "by": 0.6, "order": [1, 3, 2, 4, 5]},
            {"tag": "hardly under half", "row": 2, "by": 0.4, "order": [1, 2, 3, 4, 5]},
            {"tag": "there and back", "row": 2, "by": 0, "order": [1, 2, 3, 4, 5]},
        ];
    }

    function test_drop(data) {
        showRows(5);
        const dragged = row(data.row);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(data.row, 30);
        dragOn(data.by * rowHeight - 30);
        compare(names(), [1, 2, 3, 4, 5]); // until it is let go
        letGo();
        compare(names(), data.order);
        compare(jobs.count, data.order.join() === "1,2,3,4,5" ? 0 : 1);
        compare(row(data.row), dragged);
        compare(lifted(), []);
        compare(Bench.openedPanels, []);
        tryTops(data.order, tops);
        for (const number of data.order)
            compare(row(number).opacity, 1);
    }

    function test_theOthersPartForIt() {
        showRows(5);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(2, 2 * rowHeight);
        compare(row(2).opacity, 0);
        compare(lifted().length, 1);
        compare(lifted()[0].job.fileName, nameOf(2));
        tryTops([1, 3, 4, 5], [tops[0], tops[1], tops[2], tops[4]]);
        dragOn(-3 * rowHeight);
        tryTops([1, 3, 4, 5], [tops[1], tops[2], tops[3], tops[4]]);
        letGo();
        compare(names(), [2, 1, 3, 4, 5]);
        // At once: nothing jumps and comes back.
        [2, 1, 3, 4, 5].forEach((number, i) => fuzzyCompare(shownTop(number), tops[i], 0.51));
    }

    function test_theyGlide() {
        showRows(5);
        const top = shownTop(3);
        drag(2, 20);
        mouseMove(view, 216, pointerY + rowHeight, -1, Qt.LeftButton);
        verify(shownTop(3) > top - rowHeight + 1, "at once");
        tryTops([3], [top - rowHeight]);
        mouseRelease(view, 216, pointerY + rowHeight);
        settle();
        compare(names(), [1, 3, 2, 4, 5]);
    }

    function test_theyJumpWhereNothingIsToMove() {
        Bench.animates = false;
        showRows(5);
        const top = shownTop(3);
        drag(2, 20);
        mouseMove(view, 216, pointerY + rowHeight, -1, Qt.LeftButton);
        compare(shownTop(3), top - rowHeight);
        mouseRelease(view, 216, pointerY + rowHeight);
    }

    // Without a stop on the way, where the rows have said so already.
    function test_reachesTheEndsInOneMovement_data() {
        return [
            {"tag": "above the first", "row": 3, "to": -100, "order": [3, 1, 2]},
            {"tag": "below the last", "row": 1, "to": 400, "order": [2, 3, 1]},
        ];
    }

    function test_reachesTheEndsInOneMovement(data) {
        showRows(3);
        drag(data.row, 10);
        pointerY = data.to;
        mouseMove(view, 216, pointerY, -1, Qt.LeftButton);
        letGo();
        compare(names(), data.order);
    }

    function test_thePictureFollowsThePointer() {
        showRows(5);
        const start = shownTop(2);
        drag(2, 70);
        const picture = lifted()[0];
        fuzzyCompare(area(picture).y, start + 70, 1.01);
        compare(area(picture).x, area(row(1)).x);
        compare([picture.width, picture.height], [row(1).width, row(1).height]);
        compare(texts(picture), texts(row(2)));
        dragOn(25);
        fuzzyCompare(area(picture).y, start + 95, 1.01);
        letGo();
    }

    function test_escapePutsItBack() {
        showRows(5);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(1, 3 * rowHeight);
        keyClick(Qt.Key_Escape);
        compare(lifted(), []);
        compare(row(1).opacity, 1);
        dragOn(20);
        compare(lifted(), []);
        letGo();
        compare(names(), [1, 2, 3, 4, 5]);
        compare(jobs.count, 0);
        tryTops([1, 2, 3, 4, 5], tops);
        // And the next drag is like the first.
        drag(1, rowHeight);
        letGo();
        compare(names(), [2, 1, 3, 4, 5]);
    }

    function test_aDialogPutsItBack() {
        showRows(5);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(1, 2 * rowHeight);
        compare(lifted().length, 1);
        verify(Bench.interruptByDialog());
        compare(lifted(), []);
        compare(row(1).opacity, 1);
        tryTops([1, 2, 3, 4, 5], tops);
        // The button is still held.
        dragOn(rowHeight);
        compare(lifted(), []);
        letGo();
        compare(names(), [1, 2, 3, 4, 5]);
        compare(jobs.count, 0);
        // And the next drag is like the first.
        drag(1, rowHeight);
        compare(lifted().length, 1);
        letGo();
        compare(names(), [2, 1, 3, 4, 5]);
    }

    function test_aSmallMovementIsNoDrag() {
        showRows(3);
        drag(1, 4);
        compare(lifted(), []);
        letGo();
        verify(list().interactive); // it scrolls on
        compare(jobs.count, 0);
    }

    function test_doesNothingWhileConverting() {
        showRows(5);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        settle();
        jobs.clear();
        drag(3, rowHeight);
        compare(lifted(), []);
        compare(row(3).opacity, 1);
        letGo();
        compare(names(), [1, 2, 3, 4, 5]);
        compare(jobs.count, 0);
    }

    function test_endsWhenABatchStarts() {
        showRows(5);
        drag(3, rowHeight);
        compare(lifted().length, 1);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        compare(lifted(), []);
        letGo();
        verify(list().interactive); // it scrolls on
        compare(names(), [1, 2, 3, 4, 5]);
        compare(row(3).opacity, 1);
    }

    function test_worksAgainAfterABatch() {
        showRows(2);
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("No.");
        verify(Bench.convert());
        settle();
        drag(1, rowHeight + 20);
        letGo();
        compare(names(), [2, 1]);
    }

    function test_buttonsAreNoHandles() {
        showRows(3);
        const remove = one(row(1), SymbolButton, b => b.text === "Remove from queue");
        mouseClick(remove);
        compare(names(), [2, 3]);
        verify(list().interactive); // it scrolls on
    }

    function test_theRowIsTheCurrentOneWhereItIsLetGo() {
        showRows(5);
        drag(2, 2 * rowHeight);
        letGo();
        compare(names(), [1, 3, 4, 2, 5]);
        verify(row(2).activeFocus);
        compare([list().currentItem, list().currentIndex], [row(2), 3]);
        keyClick(Qt.Key_Delete);
        compare(names(), [1, 3, 4, 5]);
    }
}
