// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// Drops onto the empty queue and onto the list.
JobListTest {
    id: test

    name: "FileDropArea"

    Component {
        id: zones

        DropZone {
            height: 460
            model: Bench.model
            width: 649
        }
    }

    Component {
        id: queues

        QueueView {
            height: 640
            model: Bench.model
            width: 649
        }
    }

    SignalSpy {
        id: targeted

        signalName: "isDropTargetedChanged"
    }

    function showTarget(isList) {
        if (isList)
            Bench.queue(["there.mp4"]);
        show(isList ? lists : zones);
        targeted.target = Bench.model;
        targeted.clear();
    }

    function added() {
        return Bench.fileNames.filter(name => name !== "there.mp4");
    }

    function test_places_data() {
        const places = [[0, 0], [3, 230], [648, 459], [324, 230], [30, 25]];
        const data = [];
        for (const isList of [false, true]) {
            for (const place of places)
                data.push({"tag": (isList ? "list " : "zone ") + place, "isList": isList,
                           "x": place[0], "y": place[1]});
        }
        return data;
    }

    function test_places(data) {
        showTarget(data.isList);
        verify(!Bench.model.isDropTargeted);
        verify(FileDrag.enter(view, data.x, data.y, ["file:///in/b.mp4", "file:///in/a.mov"]));
        verify(Bench.model.isDropTargeted);
        verify(FileDrag.drop());
        verify(!Bench.model.isDropTargeted);
        // Each in a call of its own, once the drop is over.
        compare(added(), []);
        tryCompare(Bench, "fileNames", (data.isList ? ["there.mp4"] : []).concat("b.mp4", "a.mov"));
        compare(targeted.count, 2);
    }

    function test_leaving_data() {
        return [{"tag": "zone", "isList": false}, {"tag": "list", "isList": true}];
    }

    function test_leaving(data) {
        showTarget(data.isList);
        verify(FileDrag.enter(view, 300, 200, ["file:///in/a.mp4"]));
        verify(Bench.model.isDropTargeted);
        FileDrag.leave();
        verify(!Bench.model.isDropTargeted);
        wait(0);
        compare(added(), []);
    }

    function test_refused_data() {
        return [
            {"tag": "web addresses", "urls": ["https://example.org/a.mp4"]},
            {"tag": "no address", "urls": []},
            {"tag": "other machine's", "urls": ["sftp://host/a.mp4", "smb://host/b.mp4"]},
        ];
    }

    function test_refused(data) {
        for (const isList of [false, true]) {
            showTarget(isList);
            verify(!FileDrag.enter(view, 300, 200, data.urls));
            verify(!Bench.model.isDropTargeted);
            FileDrag.leave();
            verify(!Bench.model.isDropTargeted);
        }
    }

    function test_textIsRefused() {
        for (const isList of [false, true]) {
            showTarget(isList);
            verify(!FileDrag.enterWithText(view, 300, 200, "/in/a.mp4"));
            verify(!Bench.model.isDropTargeted);
            FileDrag.leave();
        }
    }

    function test_whatIsNoVideoIsTakenAndLeftOut() {
        showTarget(false);
        verify(FileDrag.enter(view, 300, 200, ["file:///in/notes.txt", "file:///in/a.webm"]));
        verify(FileDrag.drop());
        tryCompare(Bench, "fileNames", ["a.webm"]);
    }

    function test_zoneShowsTheHoverAndTheListDoesNot() {
        showTarget(false);
        const outline = one(view, SmoothRectangle);
        verify(FileDrag.enter(view, 300, 200, ["file:///in/a.mp4"]));
        compare(outline.borderWidth, 2);
        compare(outline.borderColor, Theme.current.accent);
        FileDrag.leave();
        compare(outline.borderWidth, 1);

        showTarget(true);
        const before = grabImage(view);
        verify(FileDrag.enter(view, 300, 300, ["file:///in/a.mp4"]));
        settle();
        verify(grabImage(view).equals(before));
        FileDrag.leave();
    }

    function test_dropsWhileConverting() {
        showTarget(true);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        verify(FileDrag.enter(view, 300, 300, ["file:///in/a.mp4"]));
        verify(FileDrag.drop());
        tryVerify(() => added().length === 1);
        verify(Bench.model.isConverting);
    }

    function test_hoverEndsWithTheEmptyQueue() {
        show(queues);
        verify(FileDrag.enter(view, 300, 300, ["file:///in/a.mp4"]));
        verify(Bench.model.isDropTargeted);
        Bench.queue(["b.mp4"]);
        tryVerify(() => !Bench.model.isDropTargeted);
        FileDrag.leave();
    }
}
