// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

SidebarTest {
    name: "SettingsSidebar"

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
