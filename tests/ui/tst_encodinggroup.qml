// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    readonly property string balancedText:
        "Uses 1.6\u00d7 source bitrate for H.264 or 1.2\u00d7 for HEVC\u2014a practical size/quality compromise."

    name: "EncodingGroup"

    Component {
        id: groups

        Rectangle {
            Scheme.colors: Theme.dark
            color: Theme.sidebarEnd
            height: 300
            width: 262

            EncodingGroup {
                model: Bench.model
                width: parent.width
            }
        }
    }

    function picker() {
        return one(view, DropDown);
    }

    function description() {
        const lines = all(view, Text, text => text.wrapMode === Text.Wrap);
        compare(lines.length, 1);
        return lines[0];
    }

    function sliders() {
        return all(view, AccentSlider);
    }

    function test_startsBalanced() {
        show(groups);
        compare(texts(view).slice(0, 2), ["ENCODING GOAL", "Balanced"]);
        compare(description().Accessible.name, balancedText);
        compare(sliders(), []);
    }

    function test_description_data() {
        const proRes = "Size is defined by the selected ProRes profile.";
        const rows = [
            {"goal": EncodingGoal.SameSize, "text": "Matches the source video bitrate. Similar size, "
                                                    + "with some quality loss from AV1 to H.264."},
            {"goal": EncodingGoal.Balanced, "text": balancedText},
            {"goal": EncodingGoal.ConstantQuality, "text": "Prioritizes visual quality. Output size "
                                                           + "can be much larger than AV1."},
        ];
        const data = [];
        for (const row of rows) {
            for (let codec = 0; codec < 5; ++codec) {
                const isProRes = codec > OutputCodec.Hevc;
                data.push({"tag": `goal ${row.goal}, codec ${codec}`, "goal": row.goal,
                           "codec": codec, "text": isProRes ? proRes : row.text,
                           "isProRes": isProRes});
            }
        }
        return data;
    }

    function test_description(data) {
        show(groups);
        Bench.model.goalIndex = data.goal;
        Bench.model.chooseCodec(data.codec);
        compare(description().Accessible.name, data.text);
        compare(description().text.replace(/\n/g, " "), data.text);
        compare(picker().enabled, !data.isProRes);
        compare(picker().opacity < 1, data.isProRes);
        compare(picker().currentIndex, data.goal);
        compare(picker().displayText, Bench.model.goalLabels[data.goal]);
        compare(sliders().length, data.goal === EncodingGoal.ConstantQuality && !data.isProRes ? 1 : 0);
    }

    function test_descriptionIsNeverCut() {
        show(groups);
        for (let goal = 0; goal < 3; ++goal) {
            Bench.model.goalIndex = goal;
            settle();
            const text = description();
            verify(!text.truncated);
            verify(text.lineCount >= 2);
            verify(text.contentHeight <= text.height);
            verify(text.contentWidth <= view.width);
            compareFont(text, 11, Font.Normal);
            compare(text.color, Theme.dark.secondary);
        }
    }

    function test_descriptionBreaksBetweenWords_data() {
        const data = [];
        for (const family of ["Noto Sans", "DejaVu Sans", "Cantarell", "Inter"]) {
            for (let points = 9; points <= 16; ++points)
                data.push({"tag": family + " " + points, "family": family, "points": points});
        }
        return data;
    }

    // And not within "H.264" or before the dash, where Qt would break them, too.
    function test_descriptionBreaksBetweenWords(data) {
        Bench.setFont(data.family, data.points);
        show(groups);
        for (const codec of [OutputCodec.H264, OutputCodec.Hevc + 1]) {
            Bench.model.chooseCodec(codec);
            for (let goal = 0; goal < 3; ++goal) {
                Bench.model.goalIndex = goal;
                settle();
                const lines = description().text.split("\n");
                compare(description().lineCount, lines.length, description().text);
                compare(lines.join(" "), description().Accessible.name);
            }
        }
    }

    function test_measures() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        const label = one(view, SectionLabel);
        const row = sliders()[0].parent;
        compare(area(label).x, 0);
        compare(gapBelow(label, picker()), 9);
        compare(gapBelow(picker(), row), 9);
        compare(gapBelow(row, description()), 9);
        compare(area(picker()).width, 262);
        compare(area(description()).x, 0);
        const value = textOf(view, "76%");
        compare(value.width, 38);
        compare(area(value).x + value.width, 262);
        fuzzyCompare(middle(value), middle(sliders()[0]), 0.51);
        compareFont(value, 11, Font.DemiBold);
        compare(value.font.family, SystemLook.fixedFamily);
    }

    function test_withoutTheQualityRowTheRestMovesUp() {
        show(groups);
        compare(gapBelow(picker(), description()), 9);
    }

    function test_sliderIsPurpleAndContinuous() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        const slider = sliders()[0];
        compare(slider.from, 30);
        compare(slider.to, 100);
        compare(slider.stepSize, 0);
        compare(slider.value, 76);
        verify(Qt.colorEqual(Pixels.at(slider, 4, slider.height / 2), Theme.dark.accentFill));
    }

    function test_qualityIsTruncated_data() {
        return [
            {"quality": 30, "text": "30%"}, {"quality": 76, "text": "76%"},
            {"quality": 76.9, "text": "76%"}, {"quality": 76.999999, "text": "76%"},
            {"quality": 99.99, "text": "99%"}, {"quality": 100, "text": "100%"},
        ].map(row => Object.assign({"tag": row.quality.toString()}, row));
    }

    function test_qualityIsTruncated(data) {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        Bench.model.quality = data.quality;
        compare(textOf(view, data.text).text, data.text);
        compare(sliders()[0].value, data.quality);
    }

    function test_sliderReachesItsEnds() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        const slider = sliders()[0];
        mouseDrag(slider, slider.handle.x + 8, slider.height / 2, -400, 0);
        compare(Bench.model.quality, 30);
        verify(shows(view, "30%"));
        mouseDrag(slider, slider.handle.x + 8, slider.height / 2, 600, 0);
        compare(Bench.model.quality, 100);
        verify(shows(view, "100%"));
    }

    function test_sliderTakesValuesInBetween() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        const slider = sliders()[0];
        mousePress(slider, slider.handle.x + 8, slider.height / 2);
        const values = new Set();
        for (let x = slider.handle.x + 8; x > 20; x -= 1) {
            mouseMove(slider, x, slider.height / 2, -1, Qt.LeftButton);
            values.add(Bench.model.quality);
            compare(textOf(view, Math.floor(Bench.model.quality) + "%").width, 38);
        }
        mouseRelease(slider, 20, slider.height / 2);
        verify(Array.from(values).some(value => value !== Math.floor(value)));
    }

    function test_sliderByKeyboard() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        sliders()[0].forceActiveFocus(Qt.TabFocusReason);
        const steps = [[Qt.Key_Right, 77], [Qt.Key_Up, 78], [Qt.Key_Left, 77], [Qt.Key_Down, 76],
                       [Qt.Key_PageUp, 86], [Qt.Key_PageDown, 76], [Qt.Key_Home, 30],
                       [Qt.Key_Left, 30], [Qt.Key_End, 100], [Qt.Key_Right, 100]];
        for (const [key, quality] of steps) {
            keyClick(key);
            compare(Bench.model.quality, quality);
            verify(shows(view, quality + "%"));
        }
        // Still follows.
        Bench.model.quality = 55.5;
        compare(sliders()[0].value, 55.5);
    }

    function test_pickerListsTheGoals() {
        show(groups);
        mouseClick(picker());
        tryVerify(() => picker().popup.opened);
        compare(texts(picker().popup.contentItem),
                ["Match source size", "Balanced", "Constant quality"]);
        const entries = all(picker().popup.contentItem, DropDownEntry);
        compare(entries.map(entry => entry.isChosen), [false, true, false]);
        mouseClick(entries[2]);
        tryVerify(() => !picker().popup.visible);
        compare(Bench.model.goalIndex, EncodingGoal.ConstantQuality);
        compare(picker().displayText, "Constant quality");
    }

    function test_theListHasAShadow() {
        show(groups);
        mouseClick(picker());
        tryVerify(() => picker().popup.opened);
        verifyShadow(picker().popup.background);
    }

    function test_pickerByKeyboard() {
        show(groups);
        picker().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        compare(Bench.model.goalIndex, EncodingGoal.ConstantQuality);
        keyClick(Qt.Key_Return);
        tryVerify(() => picker().popup.opened);
        const entries = all(picker().popup.contentItem, DropDownEntry);
        // What assistive technology speaks is where the keyboard is.
        const press = (key, index) => {
            keyClick(key);
            compare(entries.map(entry => entry.highlighted), entries.map(entry => entry === entries[index]));
            compare(focusItem(), entries[index]);
        };
        for (const [key, index] of [[Qt.Key_Home, 0], [Qt.Key_End, 2], [Qt.Key_Up, 1], [Qt.Key_Up, 0],
                                    [Qt.Key_Up, 0], [Qt.Key_B, 1], [Qt.Key_Up, 0]])
            press(key, index);
        compare(Assistant.description(picker()), "Constant quality, open");
        compare(entries.map(entry => entry.Accessible.selected), [false, false, true]);
        compare(entries.map(entry => all(entry, Symbol).length), [0, 0, 1]);
        compare(Bench.model.goalIndex, EncodingGoal.ConstantQuality);
        keyClick(Qt.Key_Return);
        tryVerify(() => !picker().popup.visible);
        compare(Bench.model.goalIndex, EncodingGoal.SameSize);
        compare(Assistant.description(picker()), "Match source size");
        verify(picker().activeFocus && picker().visualFocus);
    }

    function test_firstLettersGoToEntries() {
        show(groups);
        picker().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        tryVerify(() => picker().popup.opened);
        for (const key of "match s") { // of which the space bar chooses nothing
            keyClick(key);
            compare(picker().highlightedIndex, EncodingGoal.SameSize, key);
        }
        keyClick("b"); // nothing begins so
        compare(picker().highlightedIndex, EncodingGoal.SameSize);
        verify(picker().popup.opened);
        keyClick(Qt.Key_Space);
        tryVerify(() => !picker().popup.visible);
        compare(Bench.model.goalIndex, EncodingGoal.SameSize);
        // What was typed is over with that.
        keyClick(Qt.Key_Return);
        tryVerify(() => picker().popup.opened);
        keyClick("c");
        compare(picker().highlightedIndex, EncodingGoal.ConstantQuality);
        keyClick("b");
        compare(picker().highlightedIndex, EncodingGoal.ConstantQuality);
        keyClick(Qt.Key_Up);
        keyClick("c");
        compare(picker().highlightedIndex, EncodingGoal.ConstantQuality);
        compare(focusItem().text, "Constant quality");
    }

    function test_anOpenListGivesTheKeyboardBack_data() {
        return [
            {"tag": "Escape", "leave": () => keyClick(Qt.Key_Escape), "focused": () => picker()},
            {"tag": "press of the picker", "leave": () => mouseClick(picker()), "focused": () => picker()},
            {"tag": "press elsewhere", "leave": () => mouseClick(view, 1, 299), "focused": () => picker()},
            {"tag": "Tab", "leave": () => keyClick(Qt.Key_Tab), "focused": () => sliders()[0]},
            {"tag": "another window", "leave": () => verify(Bench.interruptByDialog()), "focused": () => picker()},
            {"tag": "another codec", "leave": () => {
                Bench.model.chooseCodec(OutputCodec.Hevc + 1);
                Bench.model.chooseCodec(OutputCodec.Hevc);
            }, "focused": () => picker()},
        ];
    }

    function test_anOpenListGivesTheKeyboardBack(data) {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        mouseClick(picker());
        tryVerify(() => picker().popup.opened);
        verify(!picker().activeFocus);
        data.leave();
        tryVerify(() => !picker().popup.visible);
        verify(data.focused().activeFocus);
        verify(!picker().visualFocus);
    }

    function test_aHeldKeyOpensTheListOnce_data() {
        return [
            {"tag": "Space", "key": Qt.Key_Space},
            {"tag": "Return", "key": Qt.Key_Return},
            {"tag": "Enter", "key": Qt.Key_Enter},
        ];
    }

    function test_aHeldKeyOpensTheListOnce(data) {
        show(groups);
        picker().forceActiveFocus(Qt.TabFocusReason);
        keyPress(data.key);
        Bench.repeatKey(data.key, 3);
        keyRelease(data.key);
        tryVerify(() => picker().popup.opened);
        keyClick(Qt.Key_Up);
        keyPress(data.key);
        Bench.repeatKey(data.key, 3);
        keyRelease(data.key);
        tryVerify(() => !picker().popup.visible);
        compare(Bench.model.goalIndex, EncodingGoal.SameSize);
    }

    function test_dimmedPickerTakesNothing() {
        Bench.model.chooseCodec(OutputCodec.Hevc + 1);
        show(groups);
        mouseClick(picker());
        wait(20);
        verify(!picker().popup.visible);
        picker().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        compare(Bench.model.goalIndex, EncodingGoal.Balanced);
    }

    function test_qualityRowComesBackWithItsGoal() {
        show(groups);
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        verify(shows(view, "76%"));
        Bench.model.chooseCodec(OutputCodec.Hevc + 1);
        verify(!shows(view, "76%"));
        compare(sliders(), []);
        verify(!picker().enabled);
        Bench.model.chooseCodec(OutputCodec.Hevc);
        verify(shows(view, "76%"));
        compare(picker().displayText, "Constant quality");
    }

    function test_readableInBothSchemes() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        show(groups);
        inBothSchemes(() => verifyContrast(view));
        mouseClick(picker());
        tryVerify(() => picker().popup.opened);
        inBothSchemes(() => verifyContrast(picker().popup.contentItem, () => true));
    }
}
