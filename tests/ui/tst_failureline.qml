// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The line that says how many videos have failed, in the queue that it is for.
ViewTest {
    id: test

    name: "FailureLine"

    Component {
        id: views

        QueueView {
            height: 640
            model: Bench.model
            width: 649
        }
    }

    function list() {
        return one(view, JobListView);
    }

    function lines() {
        return all(view, FailureLine);
    }

    function button(text) {
        return one(lines()[0], BorderedButton, b => b.text === text);
    }

    /// Converts so many videos, of which these rows fail.
    function convert(count, failures) {
        Bench.queueMany(count);
        show(views);
        Bench.chooseRealDestination();
        for (let row = 0; row < count; ++row)
            failures.includes(row) ? Bench.willFail("row " + row) : Bench.willComplete();
        verify(Bench.convert());
        settle();
    }

    function compareShown(row) {
        settle();
        compare(list().currentIndex, row);
        verify(list().currentItem.activeFocus);
        verify(list().currentItem.showsKeyboard);
        const found = area(list().currentItem, list());
        verify(found.y >= -0.5 && found.y + found.height <= list().height + 0.5, "in sight: " + found + " of " + list().height + ", row " + row);
    }

    function test_isThereWhenSomethingHasFailed() {
        convert(2, []);
        compare(lines(), []);
        Bench.queue(["broken.mov"]);
        Bench.willFail("no video");
        verify(Bench.convert());
        settle();
        verify(shows(lines()[0], "1 of 3 videos failed"));
        const above = area(list().itemAtIndex(0));
        mouseClick(button("Dismiss"));
        settle();
        compare(lines(), []);
        compare(area(list().itemAtIndex(0)), above);
    }

    function test_nothingElseMovesWhenASearchIsSpokenOf() {
        Bench.animates = false; // or the list would still glide
        convert(20, [1]);
        list().contentY = 200;
        settle();
        const places = () => [list().itemAtIndex(5), button("Show Next")].map(item => area(item));
        const before = places();
        const search = Array.from(lines()[0].parent.children).find(item => item instanceof SearchLine);
        for (const isSearching of [true, false]) {
            search.isSearching = isSearching;
            settle();
            compare(search.visible, isSearching);
            compare(places(), before);
        }
    }

    // By its key it is worked below.
    function test_showsOneAfterTheOtherAndGoesRound_data() {
        return [
            {"tag": "mouse", "next": () => mouseClick(button("Show Next"))},
            {"tag": "touch", "next": () => {
                const finger = touchEvent(view);
                finger.press(0, button("Show Next")).commit();
                finger.release(0, button("Show Next")).commit();
            }},
            {"tag": "assistive technology", "next": () => Assistant.act(button("Show Next"), "Press")},
        ];
    }

    function test_showsOneAfterTheOtherAndGoesRound(data) {
        const failures = [0, 1, 10, 17];
        convert(18, failures);
        list().contentY = 130; // where none of them is
        for (const row of failures.concat(failures)) {
            data.next();
            compareShown(row);
        }
        // From where the user has gone.
        mouseClick(list().itemAtIndex(15), 200, 20);
        data.next();
        compareShown(17);
    }

    function test_theOnlyOneIsShownAgain() {
        convert(20, [15]);
        keyClick(Qt.Key_F3);
        list().positionViewAtBeginning();
        keyClick(Qt.Key_F3);
        compareShown(15);
    }

    function test_ofWhatComesIntoThePlaceOfAnotherTheNextIsShown() {
        convert(8, [2, 3, 4]);
        keyClick(Qt.Key_F3);
        keyClick(Qt.Key_Delete);
        compareShown(2); // which was 3
        verify(shows(lines()[0], "2 of 7 videos failed"));
        keyClick(Qt.Key_F3);
        compareShown(3);
        Bench.model.requeue(list().currentItem.job.id);
        verify(shows(lines()[0], "1 of 7 videos failed"));
        keyClick(Qt.Key_F3);
        compareShown(2);
    }

    function test_whoHasTheKeyboardWhenItGoes() {
        convert(2, [1]);
        button("Show Next").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        compare(focusItem(), button("Dismiss"));
        keyClick(Qt.Key_Space);
        settle();
        compare(lines(), []);
        compare(focusItem().text, "Folder");
        verify(focusItem().visualFocus);
        // And its key is nobody's any more.
        keyClick(Qt.Key_F3);
        compare(focusItem().text, "Folder");
    }

    function test_aNightsWorkByKeyboardAlone() {
        const failures = Array.from({"length": 43}, (_, i) => 5 + 6 * i + i % 3);
        convert(300, failures);
        verify(shows(lines()[0], "43 of 300 videos failed"));
        one(view, ProminentButton, b => b.text === "Convert 43 Videos").forceActiveFocus(Qt.TabFocusReason);
        while (focusItem().text !== "Show Next")
            keyClick(Qt.Key_Backtab);
        keyClick(Qt.Key_Space);
        const seen = [];
        while (seen.length < 43) {
            compareShown(failures[seen.length]);
            seen.push(list().currentItem.job.mainMessage);
            keyClick(Qt.Key_F3);
        }
        compare(seen, failures.map(row => "row " + row));
        compareShown(failures[0]);
    }

    function test_tellsItsKey() {
        convert(1, [0]);
        compareTip(button("Show Next"), 10, 10, "F3");
    }
}
