// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

JobListTest {
    id: test

    name: "JobList"

    /// The progress of the whole queue.
    function bars() {
        return all(view, ProgressLine, bar => bar.parent.parent === view);
    }

    function row(fileName) {
        const found = rows().filter(row => row.job.fileName === fileName);
        compare(found.length, 1);
        return found[0];
    }

    /// The rows that there are of the queue's jobs, in its order.
    function rows() {
        const found = [];
        const shown = list();
        for (let i = 0; i < shown.count; ++i) {
            const item = shown.itemAtIndex(i);
            if (item)
                found.push(item);
        }
        return found;
    }

    /// Also those that are kept for use again.
    function builtRows() {
        const found = [];
        const items = list().contentItem.children;
        for (let i = 0; i < items.length; ++i) {
            if (items[i] instanceof JobRow)
                found.push(items[i]);
        }
        return found;
    }

    function convertFirst(fractions) {
        Bench.chooseRealDestination();
        Bench.willStayAt(fractions);
        verify(Bench.convert());
        settle();
    }

    function test_rowsInTheOrderOfTheQueue() {
        Bench.queue(["c.mp4", "a.mp4", "b.mp4"]);
        show(lists);
        compare(rows().map(row => row.job.fileName), ["c.mp4", "a.mp4", "b.mp4"]);
        compare(all(view, JobRow).length, 3);
        compare(gapBelow(rows()[0], rows()[1]), 0);
        compare(list().orientation, ListView.Vertical);
    }

    function test_overallProgressIsShownWhileConverting() {
        Bench.queue(["a.mp4", "b.mp4"]);
        show(lists);
        compare(bars(), []);
        compareArea(list(), 0, 0, 649, 460);
        convertFirst([0.25, 0.5]);
        compare(bars().length, 1);
        const bar = bars()[0];
        compareArea(bar, 26, 0, 597, bar.height);
        compareArea(list(), 0, bar.height, 649, 460 - bar.height);
        compare(bar.fraction, 0.125);
        compare(Pixels.at(bar, 20, bar.height / 2), Theme.current.accent);
        Bench.willComplete();
        verify(Bench.goOn());
        compare(bar.fraction, 0.25);
        verify(Bench.goOn());
        verify(!Bench.model.isConverting);
        compare(bars(), []);
        settle();
        compareArea(list(), 0, 0, 649, 460);
    }

    function test_overallProgressGoesWithACancelledBatch() {
        Bench.queue(["a.mp4"]);
        show(lists);
        convertFirst([0.25]);
        compare(bars().length, 1);
        verify(Bench.cancel());
        compare(bars(), []);
        verify(shows(view, "Cancelled"));
    }

    function test_overallProgressStartsEmpty() {
        Bench.queue(["a.mp4"]);
        show(lists);
        convertFirst([0]);
        const bar = bars()[0];
        compare(bar.fraction, 0);
        compare(Pixels.count(bar, Theme.current.accent), 0);
    }

    // As wide as it is high, so that its ends are round.
    function test_theFirstOfTheProgressIsADot() {
        Bench.queue(["a.mp4"]);
        show(lists);
        convertFirst([0.001]);
        const bar = bars()[0];
        compare(bar.height, 6);
        compareArea(all(bar, Rectangle)[1], 26, 0, 6, 6);
    }

    function test_rowsStayTheSameThroughEveryChange() {
        Bench.queue(["a.mp4", "b.mp4", "c.mp4", "d.mp4"]);
        show(lists);
        const [a, b, c, d] = rows();
        convertFirst([0.1, 0.9]);
        verify(Bench.goOn());
        Bench.willFail("No.");
        Bench.willBeCancelled();
        verify(Bench.goOn());
        compare(rows(), [a, b, c, d]);
        compare(rows().map(row => row.job.stateWord), ["Complete", "Failed", "Cancelled", "Ready"]);
        Bench.model.remove(b.job.id);
        settle();
        compare(rows(), [a, c, d]);
        Bench.model.moveJob(d.job.id, -2);
        settle();
        compare(rows(), [d, a, c]);
        Bench.queue(["e.mp4"]);
        settle();
        compare(rows().slice(0, 3), [d, a, c]);
        Bench.model.clearCompleted();
        settle();
        compare(rows().slice(0, 2), [d, c]);
    }

    function test_scrollPositionStays() {
        Bench.queueMany(200);
        show(lists);
        convertFirst([0.1, 0.9]);
        list().contentY = 2000;
        settle();
        const seen = row("clip40.mov");
        const y = area(seen).y;
        verify(Bench.goOn());
        settle();
        compare(list().contentY, 2000);
        Bench.model.remove(row("clip41.mov").job.id);
        settle();
        compare(area(seen).y, y);
        Bench.queue(["last.mp4"]);
        settle();
        compare(area(seen).y, y);
        compare(row("clip40.mov"), seen);
    }

    function test_whatIsSeenStaysWhenRowsAboveItGo() {
        Bench.queueMany(200);
        show(lists);
        const first = row("clip1.mov").job.id;
        list().contentY = 2000;
        settle();
        const seen = row("clip40.mov");
        const y = area(seen).y;
        Bench.model.remove(first);
        settle();
        compare(row("clip40.mov"), seen);
        fuzzyCompare(area(seen).y, y, 0.51);
    }

    function test_focusStays() {
        Bench.queueMany(20);
        show(lists);
        const remove = one(row("clip5.mov"), SymbolButton, b => b.text === "Remove from queue");
        remove.forceActiveFocus(Qt.TabFocusReason);
        convertFirst([0.1, 0.9]);
        verify(remove.activeFocus);
        verify(Bench.goOn());
        verify(remove.activeFocus);
        Bench.queue(["new.mp4"]);
        Bench.willFail("No.");
        Bench.willBeCancelled();
        verify(Bench.goOn());
        verify(remove.activeFocus);
        // When rows above it go, too, and shown as before.
        const focused = row("clip5.mov");
        Bench.model.remove(row("clip3.mov").job.id);
        settle();
        compare(row("clip5.mov"), focused);
        compare(list().currentItem, focused);
        verify(remove.visualFocus);
    }

    function test_thousandsOfRowsBuildWhatIsSeen() {
        Bench.queueMany(10000);
        show(lists);
        compare(list().count, 10000);
        verify(rows().length >= 8);
        verify(builtRows().length <= 30, builtRows().length);
        list().positionViewAtEnd();
        settle();
        compare(list().itemAtIndex(9999).job.fileName, "clip10000.mov");
        verify(builtRows().length <= 40, builtRows().length);
        const end = list().contentY;
        for (let offset = 300; offset < 5000; offset += 300) {
            list().contentY = end - offset;
            settle();
        }
        verify(builtRows().length <= 60, builtRows().length);
    }

    function test_progressIsShownByItsRow() {
        Bench.queueMany(1000);
        show(lists);
        const seen = rows().slice(0, 8);
        convertFirst([0.1, 0.2, 0.3]);
        verify(Bench.goOn());
        verify(Bench.goOn());
        compare(rows().slice(0, 8), seen);
        compare(seen.map(row => row.progress), [0.3, 0, 0, 0, 0, 0, 0, 0]);
    }

    function test_scrolledByTheWheel() {
        Bench.queueMany(100);
        show(lists);
        const start = list().contentY;
        mouseWheel(list(), 300, 200, 0, -120);
        tryVerify(() => list().contentY > start);
    }

    function test_aTooltipGoesWhenTheListScrolls_data() {
        return [
            {"tag": "by the wheel", "scroll": () => mouseWheel(list(), 300, 200, 0, -120)},
            // So little that the pointer stays on what the tooltip is of.
            {"tag": "a little", "scroll": () => ++list().contentY},
        ];
    }

    function test_aTooltipGoesWhenTheListScrolls(data) {
        Bench.queueMany(100);
        show(lists);
        const start = list().contentY;
        mouseMove(textOf(row("clip4.mov"), "in"), 3, 3);
        tryVerify(() => tip() !== null, 3000);
        data.scroll();
        tryVerify(() => list().contentY > start);
        tryVerify(() => tip() === null, 300);
        tryVerify(() => !list().moving);
        settle();
        // The next place has its own.
        compareTip(textOf(row("clip6.mov"), "in"), 3, 3, "/in/clip6.mov");
    }

    function test_aTooltipGoesWhenItsRowMoves() {
        Bench.queueMany(10);
        show(lists);
        const first = row("clip1.mov").job.id;
        mouseMove(textOf(row("clip4.mov"), "in"), 3, 3);
        tryVerify(() => tip() !== null, 3000);
        Bench.model.remove(first);
        tryVerify(() => tip() === null, 300);
    }

    function test_aTooltipHasAShadow() {
        Bench.queueMany(1);
        show(lists);
        mouseMove(textOf(row("clip1.mov"), "in"), 3, 3);
        tryVerify(() => tip() !== null, 3000);
        verifyShadow(all(overlay, Rectangle)[0]);
    }

    function test_scrollBarIsThereWhenNeeded() {
        Bench.queueMany(3);
        show(lists);
        compare(all(view, VerticalScrollBar), []);
        Bench.queue(Array.from({"length": 100}, (_, i) => "more" + i + ".mp4"));
        settle();
        const bar = all(view, VerticalScrollBar)[0];
        compare(area(bar).x + bar.width, 649);
        mouseDrag(bar, bar.width / 2, 10, 0, 300);
        verify(list().contentY > 1000);
    }

    function scrollBar() {
        return all(view, VerticalScrollBar)[0];
    }

    function test_scrollBarIsWorkedByAssistiveTechnology() {
        Bench.queueMany(100);
        show(lists);
        compare(scrollBar().Accessible.name, "Scroll bar");
        const start = list().contentY;
        Assistant.act(scrollBar(), "Increase");
        const below = list().contentY;
        verify(below > start);
        Assistant.act(scrollBar(), "Increase");
        verify(list().contentY > below);
        Assistant.act(scrollBar(), "Decrease");
        fuzzyCompare(list().contentY, below, 1);
        view.enabled = false;
        Assistant.act(scrollBar(), "Increase");
        Assistant.act(scrollBar(), "Decrease");
        Assistant.act(scrollBar(), "Decrease");
        fuzzyCompare(list().contentY, below, 1);
    }

    function test_scrollBarOfALongListCanBeGrasped() {
        Bench.queueMany(10000);
        show(lists);
        verify(scrollBar().contentItem.height >= 30, scrollBar().contentItem.height);
        compare(scrollBar().contentItem.width, 6);
    }

    function test_scrollBarAnswersThePointer() {
        Bench.queueMany(100);
        show(lists);
        const bar = scrollBar();
        compare(bar.contentItem.opacity, 0.5);
        mouseMove(bar, bar.width / 2, 10);
        tryCompare(bar.contentItem, "opacity", 0.8);
        mousePress(bar, bar.width / 2, 10);
        compare(bar.contentItem.opacity, 1);
        mouseRelease(bar, bar.width / 2, 10);
        restPointer();
        tryCompare(bar.contentItem, "opacity", 0.5);
    }
}
