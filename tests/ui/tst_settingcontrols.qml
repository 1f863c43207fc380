// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// How the controls of the sidebar answer the pointer, the keyboard and assistive technology.
SidebarTest {
    name: "SettingControls"

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
        // Unless nothing is to move.
        Bench.animates = false;
        Bench.model.useHardware = false;
        compare(place(), 2);
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
}
