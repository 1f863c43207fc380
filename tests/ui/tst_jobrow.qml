// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// A row in each of its job's states.
JobListTest {
    id: test

    readonly property var states: ["waiting", "converting", "completed", "remarked", "cancelled", "failed"]

    readonly property string remark: "The source ends early: 0:06 of 0:10."

    name: "JobRow"

    function showState(state) {
        Bench.queue(["/videos/Trip/clip.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        switch (state) {
        case "waiting":
            break;
        case "converting":
            Bench.willStayAt([0.375]);
            break;
        case "completed":
            Bench.willComplete();
            break;
        case "remarked":
            Bench.willEndEarly();
            break;
        case "cancelled":
            Bench.willBeCancelled();
            break;
        case "failed":
            Bench.willFail("No space left on device.");
            break;
        default:
            fail(state);
        }
        if (state !== "waiting")
            verify(Bench.convert());
        settle();
    }

    function row() {
        return one(view, JobRow);
    }

    function bars() {
        return all(row(), ProgressLine);
    }

    function buttonNames() {
        return all(row(), SymbolButton).map(button => button.text);
    }

    function button(text) {
        return one(row(), SymbolButton, button => button.text === text);
    }

    function allStates() {
        return states.map(state => ({"tag": state}));
    }

    function test_words_data() {
        return [
            {"tag": "waiting", "texts": ["clip.mkv", "Trip", "\u2022", "Ready"]},
            {"tag": "converting", "texts": ["clip.mkv", "Trip", "\u2022", "Converting"]},
            {"tag": "completed", "texts": ["clip.mkv", "Trip", "\u2022", "Complete"]},
            {"tag": "remarked", "texts": ["clip.mkv", "Trip", "\u2022", "Complete", remark]},
            {"tag": "cancelled", "texts": ["clip.mkv", "Trip", "\u2022", "Cancelled"]},
            {"tag": "failed", "texts": ["clip.mkv", "Trip", "\u2022", "Failed", "No space left on device."]},
        ];
    }

    function test_words(data) {
        showState(data.tag);
        compare(texts(row()), data.texts);
    }

    function test_colours_data() {
        return [
            {"tag": "waiting", "word": "Ready", "color": "secondary"},
            {"tag": "converting", "word": "Converting", "color": "accent"},
            {"tag": "completed", "word": "Complete", "color": "green"},
            {"tag": "remarked", "word": "Complete", "color": "green"},
            {"tag": "cancelled", "word": "Cancelled", "color": "secondary"},
            {"tag": "failed", "word": "Failed", "color": "red"},
        ];
    }

    function test_colours(data) {
        showState(data.tag);
        inBothSchemes(() => {
            compare(textOf(row(), data.word).color, Theme.current[data.color]);
            compare(textOf(row(), "clip.mkv").color, Theme.current.text);
            compare(textOf(row(), "Trip").color, Theme.current.secondary);
            compare(textOf(row(), "\u2022").color, Theme.current.secondary);
            compare(symbolOf(row(), Symbol.Lines).color, Theme.current.tertiary);
            compare(symbolOf(row(), Symbol.Film).color, Theme.current.accent);
            if (data.tag === "failed")
                compare(textOf(row(), "No space left on device.").color, Theme.current.red);
            if (data.tag === "remarked")
                compare(textOf(row(), remark).color, Theme.current.secondary);
        });
    }

    function test_readableInBothSchemes_data() {
        return allStates();
    }

    function test_readableInBothSchemes(data) {
        showState(data.tag);
        // The handle is a cue, and the tile's film is as large as a picture.
        const isReadable = symbol => symbol.name !== Symbol.Lines && symbol.name !== Symbol.Film;
        inBothSchemes(() => {
            verifyContrast(row(), isReadable);
            const film = symbolOf(row(), Symbol.Film);
            verify(Pixels.contrast(film, film.color) >= 3);
            verifyHandle();
        });
        one(view, JobListView).currentIndex = -1;
        mouseMove(row(), 300, 5);
        inBothSchemes(() => {
            verifyContrast(row(), isReadable);
            verifyHandle();
        });
    }

    // As its thin lines come out.
    function verifyHandle() {
        const contrast = Pixels.drawnContrast(symbolOf(row(), Symbol.Lines));
        verify(contrast >= 3, contrast);
    }

    function test_controls_data() {
        const three = ["Move up", "Move down", "Remove from queue"];
        return [
            {"tag": "waiting", "buttons": three},
            {"tag": "converting", "buttons": []},
            {"tag": "completed", "buttons": ["Queue this video again"]},
            {"tag": "remarked", "buttons": ["Queue this video again"]},
            {"tag": "cancelled", "buttons": three},
            {"tag": "failed", "buttons": three},
        ];
    }

    function test_controls(data) {
        showState(data.tag);
        compare(buttonNames(), data.buttons);
        for (const control of all(row(), SymbolButton))
            verify(control.enabled);
    }

    function test_progressIsShownWhileConverting_data() {
        return allStates();
    }

    function test_progressIsShownWhileConverting(data) {
        showState(data.tag);
        compare(bars().length, data.tag === "converting" ? 1 : 0);
    }

    function test_progress() {
        showState("converting");
        const bar = bars()[0];
        compare(bar.fraction, 0.375);
        compare(Assistant.value(bar), 0.375);
        compare(Assistant.description(row()), "Trip, Converting 37%");
        const text = textOf(row(), "clip.mkv");
        compare(area(bar).x, area(text).x);
        compare(gapBelow(textOf(row(), "Converting"), bar), 6);
        compare(area(bar).x + bar.width, 649 - 26);
        inBothSchemes(() => {
            const y = bar.height / 2;
            const end = bar.width * 0.375;
            compare(Pixels.at(bar, 4, y), Theme.current.accent);
            compare(Pixels.at(bar, end - 5, y), Theme.current.accent);
            verify(!Qt.colorEqual(Pixels.at(bar, end + 2, y), Theme.current.accent));
        });
    }

    function test_progressMovesInItsRow() {
        Bench.queue(["clip.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.1, 0.9]);
        verify(Bench.convert());
        const before = row();
        compare(bars()[0].fraction, 0.1);
        verify(Bench.goOn());
        compare(bars()[0].fraction, 0.9);
        compare(row(), before);
        verify(Bench.goOn());
        compare(bars(), []);
        compare(row(), before);
    }

    function test_measures_data() {
        return allStates();
    }

    function test_measures(data) {
        showState(data.tag);
        const handle = symbolOf(row(), Symbol.Lines);
        const tile = one(row(), SmoothRectangle);
        const film = symbolOf(row(), Symbol.Film);
        const name = textOf(row(), "clip.mkv");
        const folder = textOf(row(), "Trip");
        const bullet = textOf(row(), "\u2022");
        compare([tile.width, tile.height], [42, 42]);
        compare(tile.radius, 9);
        compare(tile.color, Qt.alpha(Theme.current.accent, 0.11));
        compare(area(film).x + film.width / 2, area(tile).x + 21);
        compare(middle(film), middle(tile));
        compare(gapBeside(handle, tile), 12);
        compare(gapBeside(tile, name), 12);
        compare(area(folder).x, area(name).x);
        compare(gapBelow(name, folder), 6);
        // A text may end within a pixel.
        fuzzyCompare(gapBeside(folder, bullet), 8, 0.51);
        fuzzyCompare(gapBeside(bullet, textOf(row(), texts(row())[3])), 8, 0.51);
        for (const item of [handle, tile])
            fuzzyCompare(middle(item), middle(row()), 0.51);
        for (const control of all(row(), SymbolButton))
            fuzzyCompare(middle(one(control, Symbol)), middle(row()), 0.51);
        const highest = Math.max(42, one(row(), JobText).height);
        compare(row().height, highest + 14);
        const content = tile.parent;
        compare(content.y, 7);
        compare(content.y + content.height, row().height - 7);
        compare(Pixels.at(row(), 300, 0), Pixels.at(row(), 300, 3)); // without a frame
        compare(area(row()).x, 16);
        compare(area(row()).width, 649 - 32);
    }

    function test_fonts() {
        showState("failed");
        compareFont(textOf(row(), "clip.mkv"), 13, Font.Medium);
        for (const text of ["Trip", "\u2022", "Failed"])
            compareFont(textOf(row(), text), 12, Font.Normal);
        compareFont(textOf(row(), "No space left on device."), 11, Font.Normal);
        compare(gapBelow(textOf(row(), "Failed"), textOf(row(), "No space left on device.")), 6);
    }

    function test_controlsOfAWaitingJob() {
        showState("waiting");
        const up = button("Move up");
        const down = button("Move down");
        const remove = button("Remove from queue");
        compare(gapBeside(one(up, Symbol), one(down, Symbol)), 2);
        compare(gapBeside(one(down, Symbol), one(remove, Symbol)), 12);
        compare(area(one(remove, Symbol)).x + one(remove, Symbol).width, 649 - 26);
        verify(gapBeside(textOf(row(), "clip.mkv"), one(up, Symbol)) >= 12);
        compare(one(up, Symbol).name, Symbol.ChevronUp);
        compare(one(down, Symbol).name, Symbol.ChevronDown);
        compare(one(remove, Symbol).name, Symbol.XmarkCircleFill);
        compare(one(remove, Symbol).opacity, 0.7);
        compare(one(up, Symbol).opacity, 1);
    }

    function test_controlOfACompletedJob() {
        showState("completed");
        const again = button("Queue this video again");
        compare(one(again, Symbol).name, Symbol.ArrowClockwiseCircleFill);
        compare(one(again, Symbol).color, Theme.current.green);
        const symbol = one(again, Symbol);
        compare(area(symbol).x + symbol.width, 649 - 26);
    }

    function test_failureIsReadFromWhereItSaysWhy() {
        Bench.queue(["/videos/Trip/clip.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail("Press [q] to stop, [?] for help\nNo space left on device.");
        verify(Bench.convert());
        compare(row().Accessible.description, "Trip, Failed, No space left on device.");
    }

    function test_remarkIsRead() {
        showState("remarked");
        compare(row().Accessible.description, "Trip, Complete, " + remark);
    }

    function test_folderOfTheRoot() {
        Bench.queue(["/clip.mkv"]);
        show(lists);
        compare(texts(row()), ["clip.mkv", "/", "\u2022", "Ready"]);
    }

    function test_namesAreShownAsTheyAre() {
        Bench.queue(["/in/<b>50%20 &amp; é\u4f60.mp4"]);
        show(lists);
        compare(texts(row())[0], "<b>50%20 &amp; é\u4f60.mp4");
        compare(textOf(row(), texts(row())[0]).textFormat, Text.PlainText);
    }

    function test_queueingAgain() {
        showState("completed");
        mouseClick(button("Queue this video again"));
        compare(texts(row()), ["clip.mkv", "Trip", "\u2022", "Ready"]);
        compare(buttonNames(), ["Move up", "Move down", "Remove from queue"]);
        compare(Bench.model.completedCount, 0);
    }
}
