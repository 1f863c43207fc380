// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "SearchLine"

    Component {
        id: lines

        SearchLine {
            width: 649
        }
    }

    SignalSpy {
        id: stopped

        signalName: "stopped"
    }

    SignalSpy {
        id: dismissed

        signalName: "dismissed"
    }

    readonly property string notice: "“/videos” did not answer and was left out."
    readonly property string verdict: " did not answer and was left out."

    function button(text) {
        return one(view, BorderedButton, b => b.text === text);
    }

    function begin() {
        stopped.target = dismissed.target = show(lines);
        stopped.clear();
        dismissed.clear();
    }

    function test_takesNoRoomWhileThereIsNothingToSay() {
        begin();
        verify(!view.visible);
        view.notice = notice;
        verify(view.visible);
        view.notice = "";
        verify(!view.visible);
    }

    function test_countsWhatIsFound_data() {
        return [
            {"tag": "none", "count": 0, "text": "Searching for videos… 0 found"},
            {"tag": "one", "count": 1, "text": "Searching for videos… 1 found"},
            {"tag": "thousands", "count": 1234, "text": "Searching for videos… 1,234 found"},
            {"tag": "millions", "count": 1234567, "text": "Searching for videos… 1,234,567 found"}
        ];
    }

    function test_countsWhatIsFound(data) {
        begin();
        view.isSearching = true;
        view.foundCount = data.count;
        verify(shows(view, data.text));
    }

    function waitFor(path, name) {
        view.awaitedPlace = path;
        view.legibleAwaitedName = name;
        settle();
    }

    function test_saysWhatItWaitsFor() {
        begin();
        view.isSearching = true;
        view.foundCount = 8;
        waitFor("/cards/B\n0", "B\ufffd0");
        const text = textOf(view, "Searching for videos… 8 found, waiting for “B\ufffd0”");
        compare(text.Accessible.name, "Searching for videos… 8 found, waiting for “/cards/B\n0”");
        compareTip(text, 10, 5, "/cards/B\n0");
        // A long name is shortened, and everything stays in its line.
        const height = view.height;
        waitFor("/x", "start " + "of a long name ".repeat(20) + "end");
        compare(view.height, height);
        compare(text.lineCount, 1);
        verify(/ waiting for “start .*….* end”$/.test(text.text), text.text);
        verify(one(view, ProgressLine).width >= 80);
        waitFor("", "");
        verify(shows(view, "Searching for videos… 8 found"));
        verifyNoTip(text, 10, 5);
    }

    function test_theBarMovesWhileItSearches() {
        begin();
        view.isSearching = true;
        const bar = one(view, ProgressLine);
        verify(bar.indeterminate);
        compare(Assistant.value(bar), undefined);
        const before = grabImage(view);
        tryVerify(() => !grabImage(view).equals(before));
    }

    // The count tells that it goes on.
    function test_theBarStandsStillWhereNothingIsToMove() {
        Bench.animates = false;
        begin();
        view.isSearching = true;
        view.foundCount = 9;
        verify(shows(view, "Searching for videos… 9 found"));
        settle();
        verify(Pixels.count(one(view, ProgressLine), Theme.current.accent) > 0);
        const before = grabImage(view);
        wait(300);
        verify(grabImage(view).equals(before));
        Bench.animates = true;
        tryVerify(() => !grabImage(view).equals(before));
    }

    function leaveOut(path, shownPath) {
        view.notice = "“" + path + "”" + verdict;
        view.legiblePlace = "“" + shownPath + "”";
        view.verdict = verdict;
        settle();
    }

    function test_saysWhatWasLeftOutWhenItSearchesNoMore() {
        begin();
        view.isSearching = true;
        leaveOut("/videos", "/videos");
        verify(!shows(view, "“/videos”"));
        view.isSearching = false;
        settle();
        const place = textOf(view, "“/videos”");
        verify(!place.truncated);
        compare(textOf(view, verdict).lineCount, 1);
        fuzzyCompare(area(textOf(view, verdict)).x, area(place).x + place.contentWidth, 1);
        verify(!shows(view, "Searching for videos… 0 found"));
        verifyNoTip(place, 10, 5);
    }

    function test_shortensThePathAndNotTheSentence() {
        begin();
        const path = "/start of it/" + "videos/".repeat(30) + "end of it";
        leaveOut(path, path);
        const place = textOf(view, "“" + path + "”");
        compare(place.elide, Text.ElideMiddle);
        verify(place.truncated);
        compare(textOf(view, verdict).lineCount, 1);
        fuzzyCompare(area(textOf(view, verdict)).x, area(place).x + place.contentWidth, 1);
        verify(gapBeside(textOf(view, verdict), button("Dismiss")) >= 12);
        compareTip(textOf(view, verdict), 10, 5, view.notice);
        // Where not even that leaves it room.
        const height = view.height;
        view.width = 360;
        settle();
        compare(textOf(view, verdict).lineCount, 2);
        verify(view.height > height && place.width > 30);
        verify(gapBeside(textOf(view, verdict), button("Dismiss")) >= 12);
    }

    function test_saysInItsTooltipWhatThePathIs() {
        begin();
        leaveOut("/a\nb", "/a\ufffdb");
        compareTip(textOf(view, "“/a\ufffdb”"), 10, 5, view.notice);
        compare(all(view, TextLine).filter(text => !text.Accessible.ignored), []);
    }

    function test_isReadOut() {
        begin();
        view.isSearching = true;
        compare(view.Accessible.role, Accessible.Grouping);
        compare(view.Accessible.name, "Searching for videos…");
        view.isSearching = false;
        view.notice = notice;
        compare(view.Accessible.name, notice);
    }

    function test_isStopped_data() {
        return ways();
    }

    function test_isStopped(data) {
        begin();
        view.isSearching = true;
        data.press(button("Stop"));
        compare(stopped.count, 1);
        compare(dismissed.count, 0);
    }

    function test_isDismissed_data() {
        return ways();
    }

    function test_isDismissed(data) {
        begin();
        view.notice = notice;
        data.press(button("Dismiss"));
        compare(dismissed.count, 1);
        compare(stopped.count, 0);
    }

    // In which a person presses a button.
    function ways() {
        return [
            {"tag": "mouse", "press": button => {
                settle();
                mouseClick(button);
            }},
            {"tag": "Return", "press": button => {
                button.forceActiveFocus(Qt.TabFocusReason);
                keyClick(Qt.Key_Return);
            }},
            {"tag": "Space", "press": button => {
                button.forceActiveFocus(Qt.TabFocusReason);
                keyClick(Qt.Key_Space);
            }},
            {"tag": "assistive technology", "press": button => Assistant.act(button, "Press")}
        ];
    }
}
