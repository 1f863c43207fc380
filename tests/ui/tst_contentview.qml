// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "ContentView"

    Component {
        id: views

        ContentView {
            height: 640
            model: Bench.model
            width: 960
        }
    }

    function divider() {
        return one(view, Rectangle, item => item.parent === view && item.width === 1);
    }

    function test_measures_data() {
        return [
            {"tag": "least", "width": 960, "height": 640},
            {"tag": "large", "width": 1600, "height": 1000},
        ];
    }

    function test_measures(data) {
        show(views, {"width": data.width, "height": data.height});
        compareArea(one(view, SettingsSidebar), 0, 0, 310, data.height);
        compareArea(divider(), 310, 0, 1, data.height);
        compareArea(one(view, QueueView), 311, 0, data.width - 311, data.height);
    }

    function test_divider() {
        show(views);
        compare(divider().opacity, 0.55);
        inBothSchemes(() => {
            compare(divider().color, Theme.current.separator);
            const shown = Pixels.at(divider(), 0, 300);
            const ground = Theme.current.window;
            fuzzyCompare(shown.g, ground.g + (divider().color.g - ground.g) * 0.55, 0.01);
        });
    }

    function test_allShowTheSameController() {
        show(views);
        compare(one(view, SettingsSidebar).model, Bench.model);
        compare(one(view, QueueView).model, Bench.model);
        compare(one(view, FileMenuBar).model, Bench.model);
    }

    function test_isReadOut() {
        Bench.queue(["a.mp4"]);
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(views);
        const lines = all(view, TextLine, line => !line.Accessible.ignored);
        const isHeading = line => line.Accessible.role === Accessible.Heading;
        compare(lines.filter(isHeading).map(line => line.text),
                ["Quorvale", "OUTPUT FORMAT", "ENCODING GOAL", "OPTIONS", "Conversion Queue"]);
        for (const line of lines.filter(line => !isHeading(line)))
            compare(line.Accessible.role, Accessible.StaticText, line.text);
        // Controls say themselves what they are labelled with.
        compare(lines.filter(line => ["H.264", "Audio", "Save to", "a.mp4"].includes(line.text)), []);
        const list = one(view, JobListView);
        compare([list.Accessible.role, list.Accessible.name], [Accessible.List, "Conversion queue"]);
        compare(one(view, AccentSlider).Accessible.name, "Quality");
        Bench.chooseRealDestination();
        const reveal = one(view, SymbolButton, button => button.symbol === Symbol.ArrowRightCircle);
        compare(reveal.Accessible.name, "Show output folder");
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        settle();
        compare(all(view, ProgressLine).map(line => line.Accessible.name),
                ["Progress of the queue", "Progress of a.mp4"]);
        compare(all(view, DropDown).map(picker => picker.Accessible.name), ["Encoding goal", "Audio"]);
    }

    function test_alert() {
        show(views);
        Bench.queue(["a.mp4"]);
        mouseClick(one(view, ProminentButton, button => button.text === "Convert 1 Video"));
        const message = Bench.model.alertMessage;
        verify(message !== "");
        tryVerify(() => texts(overlay).length === 3);
        compare(texts(overlay), ["Quorvale", message, "OK"]);
        keyClick(Qt.Key_Escape);
        tryVerify(() => texts(overlay).length === 0);
        compare(Bench.model.alertMessage, "");
    }

    function test_theMenuIsSeenAboveTheSidebar() {
        show(views);
        const file = one(view, PlainButton, button => button.text === "File");
        const before = Pixels.at(file, 3, file.height / 2);
        mouseMove(file, 5, 5);
        tryVerify(() => !Qt.colorEqual(Pixels.at(file, 3, file.height / 2), before));
    }

    function test_theMenuBeginsWhereTheSidebarDoes() {
        show(views);
        compare(area(textOf(view, "File")).x, area(one(view, SidebarHeader)).x);
        inBothSchemes(() => verify(Pixels.contrast(textOf(view, "File"), textOf(view, "File").color) >= 4.5));
    }

    function test_shortcuts() {
        show(views);
        keyClick(Qt.Key_O, Qt.ControlModifier);
        tryVerify(() => Bench.openedPanels.length === 1);
        keyClick(Qt.Key_O, Qt.ControlModifier | Qt.ShiftModifier);
        tryVerify(() => Bench.openedPanels.length === 2);
        compare(Bench.openedPanels, ["Choose videos to convert", "Choose a folder of videos"]);
    }

    function test_tabGoesRoundEverything() {
        Bench.queue(["a.mp4"]);
        show(views);
        const start = one(view, PlainButton, button => button.text === "File");
        start.forceActiveFocus(Qt.TabFocusReason);
        const seen = [];
        do {
            seen.push(focusItem().Accessible.name);
            compare(all(view, FocusRing).length, 1, seen[seen.length - 1]);
            keyClick(Qt.Key_Tab);
        } while (!start.activeFocus && seen.length < 40);
        compare(seen, [
            "File", "H.264", "Encoding goal", "Apple media engine", "Audio", "Folder", "Add Videos",
            "a.mp4", "Move up", "Move down", "Remove from queue", "Save to Choose destination\u2026", "Convert 1 Video",
        ]);
    }

    function test_theMouseShowsNoFocus() {
        Bench.queue(["a.mp4", "b.mp4"]);
        show(views);
        for (const item of all(view, CodecButton).concat(all(view, ToggleSwitch), all(view, SymbolButton))) {
            mouseClick(item);
            compare(all(view, FocusRing), []);
        }
    }

    function test_aWholeConversion() {
        show(views);
        Bench.answer(["/in/a.mp4", "/in/b.mp4"]);
        mouseClick(one(view, BorderedButton, button => button.text === "Choose Videos"));
        tryVerify(() => shows(view, "2 videos \u00b7 0 complete"));
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willStayAt([0.5]);
        settle();
        mouseClick(one(view, ProminentButton, button => button.text === "Convert 2 Videos"));
        tryVerify(() => shows(view, "Converting") && shows(view, "Complete"));
        verify(shows(view, "2 videos \u00b7 1 complete"));
        tryVerify(() => Bench.model.overallProgress === 0.75);
        settle();
        mouseClick(one(view, BorderedButton, button => button.text === "Cancel"));
        tryVerify(() => shows(view, "Cancelled"));
        verify(shows(view, "Convert 1 Videos"));
    }

    function test_bordersStandOutWhereContrastIsWanted() {
        Bench.hasContrast = true;
        Bench.queue(["a.mp4"]);
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        show(views);
        verify(Bench.convert());
        const items = () => all(view, BorderedButton).concat(
            all(view, DropDown), all(view, ProgressLine), one(view, ToggleSwitch).indicator, one(view, AccentSlider).background,
            one(view, CodecButton, button => button.selected), one(view, JobRow));
        inBothSchemes(() => {
            compare(items().length, 11);
            for (const item of items())
                compare(Pixels.at(item, item.width - 16, 0), item.Scheme.colors.text, item);
        });
        keyClick(Qt.Key_F10);
        tryVerify(() => all(overlay, PopupGround).length > 0);
        inBothSchemes(() => compare(Pixels.at(one(overlay, PopupGround), 20, 0), Theme.dark.text));
    }

    function test_readableInBothSchemes_data() {
        return [{"tag": "usual contrast", "hasContrast": false}, {"tag": "more contrast", "hasContrast": true}];
    }

    function test_readableInBothSchemes(data) {
        Bench.hasContrast = data.hasContrast;
        show(views);
        inBothSchemes(() => verifyContrast(view));
        Bench.queue(["a.mp4", "b.mp4", "c.mp4"]);
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("No.");
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        inBothSchemes(() => verifyContrast(view));
        verify(Bench.cancel());
        Bench.model.chooseCodec(OutputCodec.ProRes422);
        inBothSchemes(() => verifyContrast(view));
        const isHighlighted = item => item.highlighted;
        for (const [open, type] of [[() => Assistant.act(all(view, DropDown)[1], "Press"), DropDownEntry],
                                    [() => keyClick(Qt.Key_F10), DropMenuItem]]) {
            open();
            tryVerify(() => all(overlay, type).length > 0);
            if (all(overlay, type, isHighlighted).length === 0)
                keyClick(Qt.Key_Down);
            tryCompare(all(overlay, type, isHighlighted), "length", 1);
            inBothSchemes(() => verifyContrast(overlay));
            keyClick(Qt.Key_Escape);
            tryVerify(() => texts(overlay).length === 0);
        }
    }
}
