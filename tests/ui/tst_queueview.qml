// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "QueueView"

    Component {
        id: views

        QueueView {
            height: 640
            model: Bench.model
            width: 649
        }
    }

    function zones() {
        return all(view, DropZone);
    }

    function lists() {
        return all(view, JobList);
    }

    function test_emptyQueue() {
        show(views);
        compare(zones().length, 1);
        compare(lists(), []);
        verify(shows(view, "Add AV1, MP4, MKV, WebM, or MOV files"));
        verify(shows(view, "Convert 0 Videos"));
        verify(!one(view, ProminentButton, b => b.text === "Convert 0 Videos").enabled);
    }

    function test_theMiddleFollowsTheQueue() {
        show(views);
        Bench.queue(["a.mp4"]);
        compare(zones(), []);
        compare(lists().length, 1);
        verify(shows(view, "1 video · 0 complete"));
        verify(shows(view, "Convert 1 Video"));
        settle();
        mouseClick(one(view, SymbolButton, b => b.text === "Remove from queue"));
        tryVerify(() => zones().length === 1);
        compare(lists(), []);
    }

    function test_clearingTheLastBringsTheZoneBack() {
        show(views);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        verify(Bench.convert());
        settle();
        mouseClick(one(view, BorderlessButton));
        tryVerify(() => zones().length === 1);
    }

    function test_theThreePartsFillIt_data() {
        return [{"tag": "empty", "files": []}, {"tag": "one", "files": ["a.mp4"]}];
    }

    function test_theThreePartsFillIt(data) {
        Bench.queue(data.files);
        show(views);
        for (const size of [[649, 640], [900, 700]]) {
            view.width = size[0];
            view.height = size[1];
            settle();
            const header = one(view, QueueHeader);
            const footer = one(view, QueueFooter);
            const middlePart = zones().concat(lists())[0];
            compareArea(header, 0, 0, size[0], header.implicitHeight);
            compareArea(footer, 0, size[1] - footer.implicitHeight, size[0], footer.implicitHeight);
            compareArea(middlePart, 0, header.height, size[0], size[1] - header.height - footer.height);
        }
    }

    function test_aNewListShowsItsBeginning_data() {
        const data = [];
        for (const points of [9, 11, 13, 16]) {
            for (const count of [1, 8, 9, 200])
                data.push({"tag": `${count} at ${points} points`, "count": count, "points": points});
        }
        return data;
    }

    // Of files that are dropped, which come one by one, and whatever becomes of them.
    function test_aNewListShowsItsBeginning(data) {
        Bench.setFont("DejaVu Sans", data.points);
        show(views);
        Bench.queue(Array.from({"length": data.count}, (_, i) => `clip${i}.mov`));
        const verifyBeginning = what => {
            settle();
            const list = one(view, JobListView);
            verify(list.itemAtIndex(0), what);
            compare(area(list.itemAtIndex(0), list).y, 6, what);
            compare(list.contentY, list.originY - list.topMargin, what);
        };
        verifyBeginning("dropped");
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        verifyBeginning("converting");
        Bench.willFail("No space left\non device");
        Bench.willBeCancelled();
        verify(Bench.goOn());
        verifyBeginning("converted");
        Bench.queue(["more.mov", "more.mkv", "more.mp4"]);
        verifyBeginning("more");
        Bench.model.requeue(one(view, JobListView).itemAtIndex(0).job.id);
        verifyBeginning("queued again");
        Bench.completeEverySecond();
        verifyBeginning("completed");
        Bench.model.clearCompleted();
        verifyBeginning("cleared");
        Bench.model.remove(one(view, JobListView).itemAtIndex(0).job.id);
        verifyBeginning("removed");
        for (const height of [480, 900, 640]) {
            view.height = height;
            verifyBeginning("resized");
        }
        Bench.queue(Array.from({"length": 9}, (_, i) => `again${i}.mov`));
        verifyBeginning("dropped again");
    }

    function test_scrolledRowsStayInTheirPart() {
        Bench.queueMany(50);
        show(views);
        const parts = [one(view, QueueHeader), one(view, QueueFooter)];
        const before = parts.map(part => grabImage(part));
        const list = one(view, JobListView);
        for (const offset of [20, 45, 300]) {
            list.contentY = offset;
            settle();
            parts.forEach((part, i) => verify(grabImage(part).equals(before[i]), offset));
        }
    }

    function test_tabGoesFromTopToBottom() {
        Bench.chooseDestination("/out");
        Bench.queue(["a.mp4"]);
        show(views);
        one(view, BorderedButton, b => b.text === "Folder").forceActiveFocus(Qt.TabFocusReason);
        const seen = [];
        for (let i = 0; i < 9; ++i) {
            seen.push(focusItem().Accessible.name);
            keyClick(Qt.Key_Tab);
        }
        compare(seen, ["Folder", "Add Videos", "a.mp4", "Move up", "Move down", "Remove from queue",
                       "Save to /out", "Show output folder", "Convert 1 Video"]);
    }
}
