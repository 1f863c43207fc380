// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The window at its least size, in the fonts of the common desktops and in the sizes that people
// set there.
ViewTest {
    id: test

    readonly property var names: [
        "clip.mkv",
        "A very long name that the camera app made of the place, the weather and the lens 2025-06-14.mp4",
        "\u65e5\u672c\u8a9e\u306e\u9577\u3044\u540d\u524d\u306e\u30d5\u30a1\u30a4\u30eb".repeat(5) + ".mov",
        "\u0645\u0642\u0637\u0639 \u0637\u0648\u064a\u0644 \u0645\u0646 \u0627\u0644\u0631\u062d\u0644\u0629 ".repeat(6) + ".avi",
        "\u05e1\u05e8\u05d8\u05d5\u05df.webm",
        "last.mp4",
    ]

    name: "TextSizes"

    Component {
        id: views

        ContentView {
            height: 640
            model: Bench.model
            width: 960
        }
    }

    Component {
        id: lines

        SearchLine {
            width: 649
        }
    }

    /// The families and sizes, each with the other.
    function fonts() {
        const data = [];
        for (const family of ["Noto Sans", "DejaVu Sans", "Cantarell", "Inter"]) {
            for (const points of [9, 10, 11, 13, 16, 22])
                data.push({"tag": family + " " + points, "family": family, "points": points});
        }
        return data;
    }

    /// What the item is in, up to the view, without what is scrolled, which may be larger.
    function surroundings(item) {
        const found = [];
        for (let outer = item.parent; outer !== view; outer = outer.parent) {
            if (outer.parent instanceof Flickable && outer === outer.parent.contentItem)
                return found;
            if (outer.width > 0 && outer.height > 0)
                found.push(outer);
        }
        return found.concat(view);
    }

    function isIn(item, outer) {
        const place = area(item, outer);
        return place.x >= -1 && place.y >= -1 && place.x + place.width <= outer.width + 1
            && place.y + place.height <= outer.height + 1;
    }

    function isInside(item, outer) {
        for (let above = item; above && outer; above = above.parent) {
            if (above === outer)
                return true;
        }
        return false;
    }

    /// What can be seen of the item, which may be scrolled away, and of a text that was shortened be
    /// narrower than its room.
    function seen(item) {
        let place = area(item);
        if (item instanceof TextLine && item.truncated && item.horizontalAlignment === Text.AlignLeft)
            place.width = Math.min(place.width, item.contentWidth);
        for (let outer = item.parent; outer && outer !== view; outer = outer.parent) {
            if (!outer.clip)
                continue;
            const window = area(outer);
            const top = Math.max(place.y, window.y);
            const bottom = Math.min(place.y + place.height, window.y + window.height);
            place = Qt.rect(place.x, top, place.width, bottom - top);
        }
        return place;
    }

    function isCovering(one, other) {
        const a = seen(one);
        const b = seen(other);
        return Math.min(a.x + a.width, b.x + b.width) - Math.max(a.x, b.x) > 1
            && Math.min(a.y + a.height, b.y + b.height) - Math.max(a.y, b.y) > 1;
    }

    /// What may be shortened, because it may be of any length.
    function mayBeShortened(text) {
        return text instanceof ElidedLine || isInside(text, one(view, QueueHeader))
            || all(view, JobText).some(column => isInside(text, column));
    }

    /// That nothing of the items covers anything else.
    function verifyApart(items) {
        for (let i = 0; i < items.length; ++i) {
            for (let j = i + 1; j < items.length; ++j) {
                const areApart = isInside(items[i], items[j]) || isInside(items[j], items[i])
                    || !isCovering(items[i], items[j]);
                verify(areApart, items[i] + (items[i].text ?? "") + " " + area(items[i]) + " and "
                       + items[j] + (items[j].text ?? "") + " " + area(items[j]));
            }
        }
    }

    /// That all texts are whole, or shortened where they may be, in what they belong to and beside
    /// everything else.
    function verifyTexts() {
        settle();
        const texts = all(view, Text, text => text.text !== "");
        verify(texts.length > 10);
        for (const text of texts) {
            const name = text.text.slice(0, 30) + ": " + area(text);
            verify(text.contentWidth <= text.width + 1 && text.contentHeight <= text.height + 1, name);
            verify(!text.truncated || mayBeShortened(text), "not shortened: " + name);
            const outside = surroundings(text).find(outer => !isIn(text, outer));
            verify(!outside, name + " in " + outside + " " + (outside ? area(outside) : ""));
        }
        verifyApart(texts.concat(all(view, T.Control)));
    }

    function test_everyTextHasItsRoom_data() {
        return fonts();
    }

    function test_everyTextHasItsRoom(data) {
        Bench.setFont(data.family, data.points);
        show(views);
        compare([Theme.body.family, Theme.body.pointSize], [data.family, data.points]);
        verifyTexts();
        Bench.queue(names);
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        Bench.model.audioIndex = 2;
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("Invalid data found when processing input, which may have been cut off while it was copied "
                       + "from the card, before its index was written, as it is with many cameras.");
        Bench.willStayAt([0.4]);
        verify(Bench.convert());
        verifyTexts();
        verify(Bench.cancel());
        verifyTexts();
        verify(shows(view, "Clear Completed"));
        Bench.model.chooseCodec(4);
        verifyTexts();
    }

    function test_searchLine_data() {
        return fonts();
    }

    function test_searchLine(data) {
        Bench.setFont(data.family, data.points);
        show(lines, {"foundCount": 123456, "isSearching": true});
        const verifyLine = () => {
            settle();
            for (const text of all(view, Text, text => text.text !== "")) {
                verify(text.elide === Text.ElideMiddle || !text.truncated, text.text);
                verify(text.contentWidth <= text.width + 1 && isIn(text, view), text.text);
            }
            verifyApart(all(view, Text).concat(all(view, T.Control), all(view, ProgressLine)));
        };
        verifyLine();
        const bars = all(view, ProgressLine);
        verify(bars.length === 1 || data.points > 16);
        verify(bars.every(bar => bar.width >= 80));
        view.legibleAwaitedName = "a folder with a long name";
        verifyLine();
        view.isSearching = false;
        view.notice = "It is there.";
        view.legiblePlace = "\u201c/media/a disk with a long name/that does not answer/" + "videos/".repeat(20) + "\u201d";
        view.verdict = " and 12 more did not answer and were left out.";
        verifyLine();
    }

    function test_popups_data() {
        return fonts();
    }

    function test_popups(data) {
        Bench.setFont(data.family, data.points);
        show(views);
        const verifyPopup = type => {
            tryVerify(() => all(overlay, type).length > 0);
            settle();
            for (const text of all(overlay, Text, text => text.text !== "")) {
                verify(!text.truncated && text.contentWidth <= text.width + 1, text.text);
                for (const other of all(overlay, Text, other => other !== text && other.text !== ""))
                    verify(!isCovering(text, other), text.text + " and " + other.text);
                verify(isIn(text, view), text.text + area(text));
            }
        };
        keyClick(Qt.Key_F10);
        verifyPopup(DropMenuItem);
        keyClick(Qt.Key_Escape);
        tryVerify(() => all(overlay, DropMenuItem).length === 0);
        for (const picker of all(view, DropDown)) {
            picker.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            verifyPopup(DropDownEntry);
            keyClick(Qt.Key_Escape);
            tryVerify(() => all(overlay, DropDownEntry).length === 0);
        }
        Bench.queue(["a.mp4", "b.mp4"]);
        Bench.chooseRealDestination();
        Bench.willFail("No space left on device");
        Bench.willComplete();
        verify(Bench.convert());
        settle();
        for (const [i, count] of [[0, 4], [1, 5]]) {
            one(view, JobRow, row => row.isCurrent).forceActiveFocus(Qt.TabFocusReason);
            keyClick(i ? Qt.Key_End : Qt.Key_Home);
            keyClick(Qt.Key_Return);
            verifyPopup(DropMenuItem);
            compare(all(overlay, DropMenuItem).length, count);
            keyClick(Qt.Key_Escape);
            tryVerify(() => all(overlay, DropMenuItem).length === 0);
        }
        Bench.chooseDestination("");
        Bench.model.start(); // which asks for a folder
        verifyPopup(ProminentButton);
    }

    function test_whatIsBesideTextsGrowsWithThem_data() {
        return [9, 9.75, 16, 22].map(points => ({"tag": points + " points", "points": points}));
    }

    function test_whatIsBesideTextsGrowsWithThem(data) {
        Bench.setFont("DejaVu Sans", data.points);
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        show(views);
        verify(Bench.convert());
        settle();
        const compareLength = (length, usual) => fuzzyCompare(length, usual * data.points / 9.75, 0.51);
        const tile = one(one(view, JobRow), SmoothRectangle);
        for (const [length, usual] of [[tile.width, 42], [tile.height, 42], [tile.radius, 9],
                                       [symbolOf(view, Symbol.Film).size, 18],
                                       [one(one(view, JobText), ProgressLine).height, 6]])
            compareLength(length, usual);
        const picker = one(view, DropDown, picker => picker.Accessible.name === "Audio");
        compareLength(picker.indicator.size, 12);
        verify(gapBeside(picker.contentItem, picker.indicator) >= 5);
        Assistant.act(picker, "Press");
        tryVerify(() => all(overlay, DropDownEntry).length > 0);
        const chosen = one(overlay, DropDownEntry, entry => entry.isChosen);
        const mark = one(chosen, Symbol);
        compareLength(mark.size, 12);
        verify(area(mark, chosen).x >= 4 && gapBeside(mark, one(chosen, Text)) >= 4);
    }

    function scroll() {
        return one(one(view, SettingsSidebar), Flickable, item => item.contentHeight > 300);
    }

    function isInSight(item) {
        return isIn(item, scroll());
    }

    /// The last of what scrolls.
    function audio() {
        return all(view, DropDown)[1];
    }

    function status() {
        return textOf(view, "FFmpeg ready");
    }

    function test_theSidebarStandsStillWhereItFits() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(views);
        const before = area(status()).y;
        fuzzyCompare(before + status().height, 640 - 22, 1);
        mouseWheel(view, 150, 400, 0, -1200);
        wait(50);
        compare(area(status()).y, before);
        compare(all(one(view, SettingsSidebar), VerticalScrollBar), []);
    }

    function test_theSidebarScrollsByWheel() {
        Bench.setFont("DejaVu Sans", 16);
        show(views);
        const before = area(status());
        fuzzyCompare(before.y + before.height, 640 - 22, 1);
        verify(!isInSight(audio()));
        verify(isInSight(one(view, SidebarHeader)));
        compare(all(one(view, SettingsSidebar), VerticalScrollBar).length, 1);
        const codecs = all(view, CodecButton);
        // Over a control, too.
        for (let i = 0; i < 20 && !isInSight(audio()); ++i) {
            mouseWheel(view, 150, 300, 0, -120);
            wait(20);
        }
        tryVerify(() => isInSight(audio()));
        tryVerify(() => !scroll().moving);
        verify(!isInSight(codecs[0]));
        compare(area(status()), before);
        compare(Bench.model.goalIndex, EncodingGoal.Balanced);
        // Nothing is seen where the menu is.
        const file = textOf(view, "File");
        compare(Pixels.at(view, 200, area(file).y + 5), Pixels.at(view, 200, area(file).y + 6));
        mouseWheel(view, 150, 300, 0, 12000);
        tryVerify(() => isInSight(codecs[0]));
    }

    function test_theSidebarScrollsToTheKeyboard() {
        Bench.setFont("DejaVu Sans", 16);
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(views);
        const start = one(view, PlainButton, button => button.text === "File");
        start.forceActiveFocus(Qt.TabFocusReason);
        const seen = [];
        const verifyFocusInSight = () => {
            const item = focusItem();
            if (!isInside(item, one(view, SettingsSidebar)))
                return false;
            verify(isInSight(item), item.Accessible.name);
            seen.push(item.Accessible.name);
            return true;
        };
        keyClick(Qt.Key_Tab);
        while (verifyFocusInSight())
            keyClick(Qt.Key_Tab);
        compare(seen, ["H.264", "Encoding goal", "Quality", "Apple media engine", "Audio"]);
        keyClick(Qt.Key_Backtab);
        while (verifyFocusInSight())
            keyClick(Qt.Key_Backtab);
        compare(seen.length, 10);
    }

    function test_aClickDoesNotScroll() {
        Bench.setFont("DejaVu Sans", 16);
        show(views);
        scroll().contentY = 0;
        mouseWheel(view, 150, 300, 0, -60);
        tryVerify(() => !scroll().moving);
        const before = scroll().contentY;
        mouseClick(all(view, CodecButton)[3]);
        compare(scroll().contentY, before);
        compare(Bench.model.codecIndex, 3);
    }

    function test_aChangeOfTheFontIsFollowed() {
        Bench.setFont("DejaVu Sans", 10);
        show(views);
        const title = textOf(view, "Conversion Queue");
        const before = title.height;
        Bench.setFont("DejaVu Sans", 16);
        settle();
        verify(title.height > before * 1.4, title.height + " " + before);
        verifyTexts();
        Bench.setFont("DejaVu Sans", 9);
        settle();
        verify(title.height < before * 1.2);
        verifyTexts();
    }
}
