// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// A test of the sidebar with the settings.
ViewTest {
    id: test

    readonly property var codecs: ["H.264", "H.265 (HEVC)", "ProRes 422", "ProRes 422 HQ", "ProRes 4444"]

    readonly property Component sidebars: Component {
        SettingsSidebar {
            height: 640
            model: Bench.model
            width: 310
        }
    }

    readonly property SignalSpy settings: SignalSpy {
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

    function slider() {
        return one(view, AccentSlider);
    }
}
