// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    property var window: null

    name: "MainWindow"

    Component {
        id: windows

        MainWindow {
            model: Bench.model
        }
    }

    function init() {
        failOnWarning(/.?/);
        Bench.begin();
        window = createTemporaryObject(windows, null);
        verify(window);
        window.requestActivate();
        tryVerify(() => window.active);
    }

    function content() {
        return one(window.contentItem, ContentView);
    }

    /// What the window shows, popups included.
    function everything() {
        return window.contentItem.parent;
    }

    function test_size() {
        compare([window.width, window.height], [960, 640]);
        compare([window.minimumWidth, window.minimumHeight], [960, 640]);
        verify(window.maximumWidth > 10000 && window.maximumHeight > 10000);
        verify(window.visible);
        compare(window.title, "Quorvale");
    }

    function test_theContentFillsIt() {
        for (const size of [[960, 640], [1300, 800]]) {
            window.width = size[0];
            window.height = size[1];
            tryVerify(() => content().width === size[0] && content().height === size[1]);
            Pixels.layOut(window.contentItem);
            compareArea(content(), 0, 0, size[0], size[1], window.contentItem);
            compareArea(one(content(), SettingsSidebar), 0, 0, 310, size[1], window.contentItem);
            compareArea(one(content(), QueueView), 311, 0, size[0] - 311, size[1], window.contentItem);
        }
    }

    function test_showsTheController() {
        compare(content().model, Bench.model);
        Bench.queue(["a.mp4"]);
        verify(shows(content(), "1 video \u00b7 0 complete"));
    }

    function test_hasTheWindowsColourInBothSchemes() {
        inBothSchemes(isDark => {
            compare(window.color, Theme.current.window);
            compare(Pixels.at(content(), 950, 5), Theme.current.window);
            compare(Pixels.at(content(), 950, 635), Theme.current.window);
            compare(window.color.hslLightness < 0.5, isDark);
        });
    }

    function test_shortcuts() {
        keyClick(Qt.Key_O, Qt.ControlModifier);
        tryVerify(() => Bench.openedPanels.length === 1);
        keyClick(Qt.Key_O, Qt.ControlModifier | Qt.ShiftModifier);
        tryVerify(() => Bench.openedPanels.length === 2);
        compare(Bench.openedPanels, ["Choose videos to convert", "Choose a folder of videos"]);
    }

    function test_noNewWindow() {
        const count = Bench.windowCount;
        keyClick(Qt.Key_N, Qt.ControlModifier);
        wait(20);
        compare(Bench.windowCount, count);
        compare(Bench.openedPanels, []);
    }

    function test_alert() {
        Bench.queue(["a.mp4"]);
        for (let i = 0; i < 2; ++i) {
            Bench.model.start();
            tryVerify(() => shows(everything(), "OK"));
            verify(shows(everything(), Bench.model.alertMessage));
            keyClick(Qt.Key_Escape);
            tryVerify(() => !shows(everything(), "OK"));
            compare(Bench.model.alertMessage, "");
        }
    }

    function test_closingLeavesTheConversionAlone() {
        Bench.queue(["a.mp4"]);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        window.close();
        wait(20);
        verify(!window.visible);
        verify(Bench.model.isConverting);
        verify(Bench.goOn());
        compare(Bench.model.completedCount, 1);
    }
}
