// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// What becomes of a row's texts that are too long for it.
JobListTest {
    id: test

    readonly property string longName: "start " + "of a long name ".repeat(15) + "end.mkv"

    name: "JobText"

    function row() {
        return one(view, JobRow);
    }

    function failWith(message) {
        Bench.queue(["clip.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail(message);
        verify(Bench.convert());
        settle();
        return textOf(row(), message);
    }

    function test_longNameIsShortenedToOneLine() {
        Bench.queue(["/in/" + longName]);
        show(lists);
        const line = textOf(row(), longName);
        verify(line.truncated);
        compare(line.lineCount, 1);
        verify(area(line).x + line.contentWidth <= area(one(row(), JobControls)).x - 12);
        compare(row().height, 56);
        compareTip(line, 50, 5, longName);
    }

    // Though the text itself begins at its right end.
    function test_rightToLeftNamesStandOnTheLeft_data() {
        return [
            {"tag": "Hebrew", "name": "\u05e9\u05dc\u05d5\u05dd"},
            {"tag": "Arabic", "name": "\u0645\u0631\u062d\u0628\u0627"}
        ];
    }

    function test_rightToLeftNamesStandOnTheLeft(data) {
        Bench.queue(["/in/" + data.name + "/" + data.name + ".mkv"]);
        show(lists);
        for (const text of [data.name, data.name + ".mkv"])
            compare(textOf(row(), text).horizontalAlignment, Text.AlignLeft);
    }

    function test_nameThatFitsHasNoTip() {
        Bench.queue(["clip.mkv"]);
        show(lists);
        verify(!textOf(row(), "clip.mkv").truncated);
        verifyNoTip(textOf(row(), "clip.mkv"), 5, 5);
    }

    function test_aTipComesAfterAWhileBelowItsText() {
        const name = "<b>" + longName;
        Bench.queue(["/in/" + name]);
        show(lists);
        const line = textOf(row(), name);
        const start = Date.now();
        mouseMove(line, 50, 5);
        tryVerify(() => tip() !== null, 3000);
        verify(Date.now() - start >= 500, Date.now() - start);
        compare(tip().text, name);
        compare(tip().textFormat, Text.PlainText);
        const ground = area(all(overlay, Rectangle)[0]);
        compare(ground.x, area(line).x);
        compare(ground.y, area(line).y + line.height + 6);
    }

    // What is shown of them is harmless; what is read out and stands in tooltips is what they are.
    function test_hostileNames_data() {
        return [
            {"tag": "lines", "name": "first\nsecond", "shown": "first\ufffdsecond"},
            {"tag": "override", "name": "holiday \u202egnp.exe", "shown": "holiday \ufffdgnp.exe"},
        ];
    }

    function test_hostileNames(data) {
        const path = "/in/" + data.name + "/" + data.name + longName;
        Bench.queue([path]);
        show(lists);
        const line = textOf(row(), data.shown + longName);
        compare(line.lineCount, 1);
        // Shortened in the middle rather than cut off.
        verify(line.truncated && line.contentWidth > line.width - 20, line.contentWidth);
        compare(row().height, 56);
        compareTip(line, 10, 5, data.name + longName);
        compareTip(textOf(row(), data.shown), 10, 5, path);
        compare(row().Accessible.name, data.name + longName);
        compare(row().Accessible.description, data.name + ", Ready");
    }

    function test_aRowIsAsHighWhateverItsNamesAreWrittenIn_data() {
        const data = [];
        for (const family of ["DejaVu Sans", "Cantarell"]) {
            for (const points of [9, 11, 13, 16])
                data.push({"tag": `${family} ${points}`, "family": family, "points": points});
        }
        return data;
    }

    /// What the letters of the row's line stand on, from the row's top.
    function baselineOf(row, line) {
        const text = all(row, Text)[line];
        return area(text, row).y + text.baselineOffset;
    }

    // Though other fonts step in whose letters and pictures are higher.
    function test_aRowIsAsHighWhateverItsNamesAreWrittenIn(data) {
        Bench.setFont(data.family, data.points);
        const written = ["clip", "\u0e01\u0e34\u0e49\u0e21", "\u0f40\u0fb1\u0f74", "\u{1f3ac}"]; // Thai, Tibetan, a picture
        Bench.queue(written.map(name => `/in/${name}/${name}.mkv`));
        show(lists);
        Bench.chooseRealDestination();
        for (const name of written)
            Bench.willFail(name + "\nNo.");
        const rows = all(view, JobRow);
        const verifyHeights = () => {
            settle();
            for (let i = 1; i < rows.length; ++i) {
                const higher = all(rows[i], Text).filter((text, line) => text.contentHeight > all(rows[0], Text)[line].contentHeight);
                verify(higher.length >= 2, "a higher font for " + written[i]);
                compare(rows[i].height, rows[0].height);
                for (const line of [0, 1])
                    fuzzyCompare(baselineOf(rows[i], line), baselineOf(rows[0], line), 0.51);
            }
            // What ordinary names need, and no less.
            for (const text of all(rows[0], Text))
                verify(text.contentHeight <= text.height && text.height < text.contentHeight + 1, text.text);
        };
        verifyHeights();
        verify(Bench.convert());
        verifyHeights();
    }

    function test_longFolderLeavesRoomForTheState() {
        const folder = "f".repeat(240);
        Bench.queue(["/in/" + folder + "/clip.mkv"]);
        show(lists);
        verify(textOf(row(), folder).truncated);
        compare(textOf(row(), folder).lineCount, 1);
        const word = textOf(row(), "Ready");
        verify(!word.truncated);
        verify(word.width >= word.contentWidth);
        verify(area(word).x + word.contentWidth <= area(one(row(), JobControls)).x - 12);
        compareTip(textOf(row(), folder), 50, 5, "/in/" + folder + "/clip.mkv");
    }

    function test_shortFailureIsOneLine() {
        const line = failWith("No space left on device.");
        compare(line.lineCount, 1);
        verify(!line.truncated);
        verifyNoTip(line, 10, 5);
    }

    function test_failureInTwoLinesIsWhole() {
        const line = failWith("The first line.\nThe second line.");
        compare(line.lineCount, 2);
        verify(!line.truncated);
    }

    function test_longFailureIsCutAfterTwoLines_data() {
        return [
            {"tag": "eight lines", "message": Array.from({"length": 8}, (_, i) => "Line " + i).join("\n")},
            {"tag": "one long line", "message": "It failed because it failed. ".repeat(40).trim()},
            {"tag": "one long word", "message": "x".repeat(900)},
        ];
    }

    function test_longFailureIsCutAfterTwoLines(data) {
        const line = failWith(data.message);
        compare(line.lineCount, 2);
        verify(line.truncated);
        verify(line.contentWidth <= line.width + 1);
        verify(line.contentHeight <= line.height + 0.5);
        // Name, status and the two lines.
        const column = one(row(), JobText);
        compare(row().height, Math.max(42, column.height) + 14);
        compareTip(line, 50, 5, data.message);
    }

    function test_failureBeginsWhereItSaysWhy() {
        const noise = "Stream mapping:\n  Stream #0:0 -> #0:0 (copy)\n";
        const message = noise + "No space left on \u202edevice.\n[aac @ 0x55d0] Qavg: 891.402";
        Bench.queue(["clip.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail(message);
        verify(Bench.convert());
        settle();
        const line = textOf(row(), "No space left on \ufffddevice.\n[aac @ 0x55d0] Qavg: 891.402");
        verify(!line.truncated);
        compareTip(line, 50, 5, message);
    }

    function test_failureIsPlainText() {
        const line = failWith("<b>bold</b> &amp; <img src='x'>");
        compare(line.textFormat, Text.PlainText);
        compare(texts(row())[4], "<b>bold</b> &amp; <img src='x'>");
    }

    function test_failureGoesWithTheState() {
        failWith("No.");
        verify(shows(row(), "No."));
        Bench.willComplete();
        verify(Bench.convert());
        verify(!shows(row(), "No."));
        settle();
        compare(row().height, 56);
    }
}
