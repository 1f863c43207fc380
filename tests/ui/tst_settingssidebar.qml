// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    readonly property var codecs: ["H.264", "H.265 (HEVC)", "ProRes 422", "ProRes 422 HQ", "ProRes 4444"]

    name: "SettingsSidebar"

    Component {
        id: sidebars

        SettingsSidebar {
            height: 640
            model: Bench.model
            width: 310
        }
    }

    SignalSpy {
        id: settings

        signalName: "settingsChanged"
    }

    function init() {
        failOnWarning(/.?/);
        Bench.begin();
        restPointer();
        show(sidebars);
        settings.target = Bench.model;
        settings.clear();
    }

    function codecButton(label) {
        return one(view, CodecButton, button => button.label === label);
    }

    function choose(label) {
        mouseClick(codecButton(label));
    }

    function selectedCodecs() {
        return all(view, CodecButton).filter(button => button.selected).map(button => button.label);
    }

    function goalPicker() {
        return all(view, DropDown)[0];
    }

    function audioPicker() {
        return all(view, DropDown)[1];
    }

    function pick(picker, index) {
        mouseClick(picker);
        tryVerify(() => picker.popup.opened);
        mouseClick(all(picker.popup.contentItem, DropDownEntry)[index]);
        tryVerify(() => !picker.popup.visible);
    }

    function hardwareSwitch() {
        return one(view, ToggleSwitch);
    }

    /// The texts, in whatever lines they are.
    function reading() {
        return texts(view).map(text => text.replace(/\n/g, " "));
    }

    function test_startsWithTheDefaults() {
        compare(selectedCodecs(), ["H.264"]);
        compareFont(textOf(view, "H.264"), 12, Font.DemiBold);
        compare(all(view, Symbol, s => s.name === Symbol.CheckmarkCircleFill).length, 1);
        compare(goalPicker().displayText, "Balanced");
        verify(reading().includes(
            "Uses 1.6× source bitrate for H.264 or 1.2× for HEVC—a practical size/quality compromise."));
        compare(all(view, AccentSlider), []);
        verify(hardwareSwitch().checked);
        compare(audioPicker().displayText, "AAC (compatible)");
    }

    function test_textsFromTopToBottom() {
        compare(reading(), ["Quorvale", "Premiere-ready video", "OUTPUT FORMAT"].concat(codecs, [
            "ENCODING GOAL", "Balanced",
            "Uses 1.6× source bitrate for H.264 or 1.2× for HEVC—a practical size/quality compromise.",
            "OPTIONS", "Apple media engine", "Audio", "AAC (compatible)", "FFmpeg ready",
        ]));
    }

    function test_measures() {
        const header = one(view, SidebarHeader);
        const format = textOf(view, "OUTPUT FORMAT");
        const buttons = all(view, CodecButton);
        const goal = one(view, EncodingGroup);
        const options = textOf(view, "OPTIONS");
        const status = one(view, ToolStatusRow);
        compareArea(one(header, AppTile), 24, 32, 44, 44);
        compare(header.height, 44);
        compare(gapBelow(header, format), 20);
        compare(gapBelow(format, buttons[0]), 8);
        for (let i = 1; i < 5; ++i)
            compare(gapBelow(buttons[i - 1], buttons[i]), 8);
        for (const button of buttons) {
            compare(area(button).x, 24);
            compare(area(button).width, 262);
            compare(button.height, 34);
        }
        compare(gapBelow(buttons[4], goal), 20);
        compare(area(goal).x, 24);
        compare(area(goal).width, 262);
        compare(gapBelow(goal, options), 20);
        compare(area(options).x, 24);
        compare(gapBelow(options, hardwareSwitch()), 10);
        compare(gapBelow(hardwareSwitch(), audioPicker()), 10);
        compare(area(hardwareSwitch()).x, 24);
        compare(area(audioPicker()).x + audioPicker().width, 286);
        compare(area(status).x, 24);
        compare(area(status).y + status.height, 640 - 22);
        verify(gapBelow(audioPicker(), status) >= 20);
    }

    function test_statusStaysAtTheBottom() {
        view.height = 900;
        settle();
        const status = one(view, ToolStatusRow);
        compare(area(status).y + status.height, 900 - 22);
        compareArea(one(view, AppTile), 24, 32, 44, 44);
    }

    // With the quality row, which makes it highest, and at the window's least height.
    function test_hasRoomForEverything() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        settle();
        verify(gapBelow(audioPicker(), one(view, ToolStatusRow)) >= 20);
        for (const text of all(view, Text)) {
            verify(!text.truncated, text.text);
            verify(area(text).x + text.contentWidth <= 286, text.text);
        }
    }

    function test_background() {
        const ground = view.children[0];
        verify(ground instanceof SmoothRectangle);
        compareArea(ground, 0, 0, 310, 640);
        compare(ground.radius, 0);
        compare(ground.color, Qt.rgba(0.08, 0.10, 0.16, 1));
        compare(ground.endColor, Qt.rgba(0.10, 0.07, 0.16, 1));
        const start = Pixels.at(view, 1, 1);
        const end = Pixels.at(view, 308, 638);
        for (const [found, expected] of [[start, ground.color], [end, ground.endColor]]) {
            fuzzyCompare(found.r, expected.r, 0.01);
            fuzzyCompare(found.g, expected.g, 0.01);
            fuzzyCompare(found.b, expected.b, 0.01);
        }
    }

    function test_isTheSameInBothSchemes() {
        const dark = ["grab", "grab"];
        inBothSchemes(isDark => dark[isDark ? 1 : 0] = grabImage(view));
        verify(dark[0].equals(dark[1]));
    }

    function test_choosingACodec_data() {
        return codecs.map((label, index) => ({"tag": label, "index": index}));
    }

    function test_choosingACodec(data) {
        choose(data.tag);
        compare(settings.count, 1);
        compare(Bench.model.codecIndex, data.index);
        compare(selectedCodecs(), [data.tag]);
        compare(Bench.model.isProRes, data.index >= 2);
        compare(audioPicker().displayText, data.index >= 2 ? "PCM (ProRes workflow)" : "AAC (compatible)");
        compare(Bench.openedPanels, []);
    }

    function test_returningFromProRes() {
        choose("ProRes 4444");
        choose("H.264");
        compare(audioPicker().displayText, "AAC (compatible)");
    }

    function test_copiedAudioStaysCopied() {
        pick(audioPicker(), 1);
        choose("ProRes 422");
        compare(audioPicker().displayText, "Copy source audio");
        choose("H.264");
        compare(audioPicker().displayText, "Copy source audio");
    }

    function test_constantQualityAndProRes() {
        pick(goalPicker(), 2);
        verify(shows(view, "76%"));
        choose("ProRes 422");
        verify(!shows(view, "76%"));
        verify(!goalPicker().enabled);
        verify(shows(view, "Size is defined by the selected ProRes profile."));
        choose("H.265 (HEVC)");
        verify(shows(view, "76%"));
        verify(goalPicker().enabled);
        compare(goalPicker().displayText, "Constant quality");
    }

    function test_arrowsChooseACodec_data() {
        return [
            {"tag": "up and down", "next": Qt.Key_Down, "previous": Qt.Key_Up},
            {"tag": "left and right", "next": Qt.Key_Right, "previous": Qt.Key_Left}
        ];
    }

    function test_arrowsChooseACodec(data) {
        codecButton("H.264").forceActiveFocus(Qt.TabFocusReason);
        const press = (key, label) => {
            keyClick(key);
            verify(codecButton(label).activeFocus, label);
            compare(all(codecButton(label), FocusRing).length, 1);
            compare(selectedCodecs(), [label]);
        };
        press(data.previous, "H.264");
        for (const label of codecs.slice(1))
            press(data.next, label);
        compare(audioPicker().displayText, "PCM (ProRes workflow)");
        press(data.next, "ProRes 4444");
        press(data.previous, "ProRes 422 HQ");
        compare(settings.count, 5);
    }

    function test_tabGoesToTheChosenCodec() {
        choose("ProRes 422");
        const name = () => focusItem().Accessible.name;
        hardwareSwitch().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Backtab);
        compare(name(), "ProRes 422");
        keyClick(Qt.Key_Tab);
        compare(name(), "Apple media engine");
        // Also when another is chosen by something else meanwhile.
        keyClick(Qt.Key_Backtab);
        Bench.model.chooseCodec(OutputCodec.H264);
        hardwareSwitch().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Backtab);
        compare(name(), "Encoding goal");
        keyClick(Qt.Key_Backtab);
        compare(name(), "H.264");
    }

    function test_assistiveTechnologyWorksAControlOnce_data() {
        return [
            {"tag": "press of a codec", "action": "Press", "item": () => codec("ProRes 422"),
             "setting": () => Bench.model.codecIndex, "becomes": 2},
            {"tag": "toggle of a codec", "action": "Toggle", "item": () => codec("ProRes 422"),
             "setting": () => Bench.model.codecIndex, "becomes": 2},
            {"tag": "press of the switch", "action": "Press", "item": hardwareSwitch,
             "setting": () => Bench.model.useHardware, "becomes": false},
            {"tag": "toggle of the switch", "action": "Toggle", "item": hardwareSwitch,
             "setting": () => Bench.model.useHardware, "becomes": false},
            {"tag": "increase of the slider", "action": "Increase", "item": slider,
             "setting": () => Bench.model.quality, "becomes": 77},
            {"tag": "decrease of the slider", "action": "Decrease", "item": slider,
             "setting": () => Bench.model.quality, "becomes": 75},
            {"tag": "value of the slider", "value": 40.5, "item": slider,
             "setting": () => Bench.model.quality, "becomes": 40.5},
            {"tag": "value beyond the slider", "value": 1e300, "item": slider,
             "setting": () => Bench.model.quality, "becomes": 100},
            {"tag": "value that is no number", "value": NaN, "item": slider,
             "setting": () => Bench.model.quality, "becomes": 30},
        ];
    }

    function codec(label) {
        return codecButton(label).children[0];
    }

    function slider() {
        return one(view, AccentSlider);
    }

    function test_assistiveTechnologyWorksAControlOnce(data) {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        settle();
        settings.clear();
        const item = data.item();
        if (data.action)
            Assistant.act(item, data.action);
        else
            Assistant.setValue(item, data.value);
        compare(data.setting(), data.becomes);
        compare(settings.count, 1);
        // And it still shows what is set by something else.
        Bench.model.chooseCodec(OutputCodec.H264);
        Bench.model.quality = 50;
        Bench.model.useHardware = true;
        compare(all(view, CodecButton).map(button => button.children[0].checked),
                [true, false, false, false, false]);
        settle();
        compare(slider().value, 50);
        verify(hardwareSwitch().checked);
    }

    function test_assistiveTechnologyDoesNotWorkWhatIsDisabled() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        settle();
        const controls = [codec("ProRes 422"), slider(), hardwareSwitch(), goalPicker()];
        for (const control of controls)
            compare(Assistant.description(control), control === goalPicker() ? "Constant quality" : "");
        view.enabled = false;
        settings.clear();
        for (const control of controls) {
            verify(Assistant.description(control).endsWith("unavailable"));
            for (const action of ["Press", "Toggle", "Increase", "Decrease"])
                Assistant.act(control, action);
        }
        Assistant.setValue(slider(), 40);
        compare(settings.count, 0);
        verify(!goalPicker().popup.visible);
        compare(slider().value, 76);
        verify(hardwareSwitch().checked);
        compare(selectedCodecs(), ["H.264"]);
        verify(codec("H.264").checked && !codec("ProRes 422").checked);
    }

    function test_aHeldKeySwitchesOnce_data() {
        return [
            {"tag": "Space", "key": Qt.Key_Space},
            {"tag": "Return", "key": Qt.Key_Return},
            {"tag": "Enter", "key": Qt.Key_Enter},
        ];
    }

    function test_aHeldKeySwitchesOnce(data) {
        hardwareSwitch().forceActiveFocus(Qt.TabFocusReason);
        keyPress(data.key);
        Bench.repeatKey(data.key, 4);
        keyRelease(data.key);
        compare(settings.count, 1);
        verify(!Bench.model.useHardware);
        verify(!hardwareSwitch().checked);
    }

    /// What the control's ground is in while the pointer is elsewhere, is on it and holds it down.
    function compareGround(control, atRest, hovered, pressed) {
        const ground = control.background;
        compare(ground.color, atRest);
        mouseMove(control, control.width / 2, control.height / 2);
        tryCompare(ground, "color", hovered);
        mousePress(control, control.width / 2, control.height / 2);
        compare(ground.color, pressed);
        // Where it is let go it is no click.
        mouseMove(view, view.width - 1, view.height - 1, -1, Qt.LeftButton);
        mouseRelease(view, view.width - 1, view.height - 1);
        restPointer();
        tryCompare(ground, "color", atRest);
    }

    function test_theSwitchAnswersThePointer() {
        const ground = hardwareSwitch().indicator;
        for (const [is, becomes] of [["accentFill", "track"], ["track", "accentFill"]]) {
            compare(ground.color, Theme.dark[is]);
            mouseMove(hardwareSwitch(), 20, 10);
            tryCompare(ground, "color", Theme.dark[is + "Hovered"]);
            mousePress(hardwareSwitch(), 20, 10);
            compare(ground.color, Theme.dark[is + "Pressed"]);
            mouseRelease(hardwareSwitch(), 20, 10);
            tryCompare(ground, "color", Theme.dark[becomes + "Hovered"]);
            restPointer();
            tryCompare(ground, "color", Theme.dark[becomes]);
        }
    }

    /// That the control shows the keyboard, but not the mouse, where it is.
    function verifyRing(control) {
        control.focus = false;
        compare(all(control, FocusRing).length, 0);
        control.forceActiveFocus(Qt.TabFocusReason);
        compare(all(control, FocusRing).length, 1);
        control.focus = false;
        control.forceActiveFocus(Qt.MouseFocusReason);
        compare(all(control, FocusRing).length, 0);
        control.focus = false;
    }

    function test_controlsAnswerThePointerAndTheKeyboard() {
        const colors = Theme.dark;
        for (const picker of [goalPicker(), audioPicker()]) {
            compareGround(picker, colors.control, colors.controlHovered, colors.controlPressed);
            compare(picker.background.border.color, colors.controlBorder);
            verifyRing(picker);
        }
        compare(settings.count, 0);
    }

    /// The round part of a control, which is whiter than it while it is held.
    function verifyKnob(control, knob) {
        compare(knob.color, Theme.white);
        mousePress(knob, knob.width / 2, knob.height / 2);
        compare(knob.color, Theme.knobPressed);
        mouseRelease(knob, knob.width / 2, knob.height / 2);
        compare(knob.color, Theme.white);
    }

    function test_knobs() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        settle();
        const slider = one(view, AccentSlider);
        verifyKnob(slider, slider.handle);
        verifyRing(slider);
        compare([slider.minimumValue, slider.maximumValue], [30, 100]);
        // Filled up to the knob.
        const isFilled = x => Qt.colorEqual(Pixels.at(slider, x, slider.height / 2), Theme.dark.accentFill);
        verify(isFilled(slider.handle.x - 2));
        verify(!isFilled(slider.handle.x + slider.handle.width + 2));

        const hardware = one(view, ToggleSwitch);
        const knob = hardware.indicator.children[0];
        const place = () => Math.round(knob.x);
        compare(place(), hardware.indicator.width - knob.width - 2);
        verifyKnob(hardware, knob);
        verify(!Bench.model.useHardware);
        tryVerify(() => place() === 2);
        // It glides there rather than jumps.
        Bench.model.useHardware = true;
        verify(place() < hardware.indicator.width - knob.width - 2);
        tryVerify(() => place() === hardware.indicator.width - knob.width - 2);
        verifyRing(hardware);
    }

    function test_pickersListIsBelowIt() {
        for (const picker of [goalPicker(), audioPicker()]) {
            symbolOf(picker, Symbol.ChevronUpDown);
            Assistant.act(picker, "Press");
            tryVerify(() => picker.popup.opened);
            compare(picker.popup.y, picker.height + 4);
            const chosen = all(picker.popup.contentItem, DropDownEntry)[picker.currentIndex];
            compare(chosen.background.color, Theme.dark.accentFill);
            compare(chosen.Accessible.name, chosen.text);
            Assistant.act(picker, "Press");
            tryVerify(() => !picker.popup.visible);
        }
    }

    function test_hardwareSwitch() {
        const toggle = hardwareSwitch();
        compare(toggle.text, "Apple media engine");
        compare(area(symbolOf(toggle, Symbol.Cpu)).x, 24); // below the labels of the others
        compare(toggle.indicator.color, Theme.dark.accentFill);
        mouseClick(toggle);
        compare(settings.count, 1);
        verify(!Bench.model.useHardware);
        compare(toggle.indicator.color, Theme.dark.track);
        toggle.forceActiveFocus(Qt.TabFocusReason);
        for (const key of [Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter]) {
            const wasOn = Bench.model.useHardware;
            keyClick(key);
            compare(Bench.model.useHardware, !wasOn);
            compare(toggle.checked, !wasOn);
        }
        Bench.model.useHardware = false;
        verify(!toggle.checked);
        choose("ProRes 422");
        verify(toggle.enabled);
        verify(!toggle.checked);
    }

    function test_audioPicker() {
        compareFont(textOf(view, "Audio"), 13, Font.Normal);
        mouseClick(audioPicker());
        tryVerify(() => audioPicker().popup.opened);
        compare(texts(audioPicker().popup.contentItem),
                ["AAC (compatible)", "Copy source audio", "PCM (ProRes workflow)"]);
        mouseClick(all(audioPicker().popup.contentItem, DropDownEntry)[2]);
        compare(settings.count, 1);
        compare(Bench.model.audioIndex, 2);
        compare(audioPicker().displayText, "PCM (ProRes workflow)");
    }

    function test_anyAudioGoesWithAnyCodec() {
        choose("ProRes 422");
        pick(audioPicker(), 0);
        compare(audioPicker().displayText, "AAC (compatible)");
        compare(selectedCodecs(), ["ProRes 422"]);
    }

    function test_nothingIsDisabledWhileConverting() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        verify(Bench.model.isConverting);
        for (const control of all(view, CodecButton).concat(all(view, DropDown), hardwareSwitch()))
            verify(control.enabled);
        choose("H.265 (HEVC)");
        compare(selectedCodecs(), ["H.265 (HEVC)"]);
        pick(goalPicker(), 0);
        compare(Bench.model.goalIndex, EncodingGoal.SameSize);
    }

    function test_tabGoesFromTopToBottom() {
        codecButton("H.264").forceActiveFocus(Qt.TabFocusReason);
        const seen = [];
        for (let i = 0; i < 4; ++i) {
            const item = focusItem();
            seen.push(item.Accessible.name);
            verify(item.visualFocus);
            keyClick(Qt.Key_Tab);
        }
        compare(seen, ["H.264", "Encoding goal", "Apple media engine", "Audio"]);
    }

    function test_tabStopsAtTheSlider() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        settle();
        goalPicker().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(slider().visualFocus);
        keyClick(Qt.Key_Tab);
        verify(hardwareSwitch().visualFocus);
    }

    // Whatever has set it.
    function test_aQualityBeyondTheSliderIsShownAndKept() {
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        settle();
        Bench.model.quality = 10;
        settings.clear();
        compare(slider().value, 30);
        compare(Bench.model.quality, 10);
        compare(settings.count, 0);
    }

    function test_assistiveTechnologyChoosesNothingInAClosedList() {
        Assistant.act(goalPicker(), "Press");
        tryVerify(() => goalPicker().popup.opened);
        const entry = all(goalPicker().popup.contentItem, DropDownEntry)[0];
        Assistant.act(goalPicker(), "Press");
        tryVerify(() => !goalPicker().popup.visible);
        Assistant.act(entry, "Press");
        compare(settings.count, 0);
        compare(Bench.model.goalIndex, EncodingGoal.Balanced);
    }

    function test_readableInBothSchemes() {
        // All symbols but the program's sign, which says nothing.
        const isReadable = symbol => symbol.name !== Symbol.SparklesTv;
        inBothSchemes(() => verifyContrast(view, isReadable));
        Bench.model.goalIndex = EncodingGoal.ConstantQuality;
        inBothSchemes(() => verifyContrast(view, isReadable));
        Bench.model.chooseCodec(2);
        inBothSchemes(() => verifyContrast(view, isReadable));
    }
}
