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

    function open(family, points) {
        window.destroy();
        Bench.setFont(family, points);
        window = createTemporaryObject(windows, null);
        verify(window);
        tryVerify(() => window.visible);
    }

    function scrollBars() {
        Pixels.layOut(window.contentItem);
        return all(content(), VerticalScrollBar).length;
    }

    function test_opensAsLargeAsTheFontNeeds_data() {
        const data = [];
        for (const family of ["Noto Sans", "DejaVu Sans", "Cantarell", "Inter"]) {
            for (const points of [9, 9.75, 10, 11])
                data.push({"tag": family + " " + points, "family": family, "points": points});
        }
        return data;
    }

    // With each of the goals, also what it makes higher than it is at the start.
    function test_opensAsLargeAsTheFontNeeds(data) {
        open(data.family, data.points);
        const opened = [window.width, window.height];
        compare(opened[0], 960);
        verify(opened[1] >= 640 && (data.points > 10 || opened[1] === 640), opened);
        for (let goal = 0; goal < 3; ++goal) {
            Bench.model.goalIndex = goal;
            tryVerify(() => scrollBars() === 0, 1000, Bench.model.goalLabels[goal]);
        }
        compare([window.width, window.height], opened);
    }

    // Unless the screen has no room for that, which here is 800 by 800.
    function test_opensInsideTheScreen() {
        open("DejaVu Sans", 22);
        compare([window.width, window.height], [960, 800 - 72]);
        compare(scrollBars(), 1);
    }

    // Where the screen has the room: the title and the buttons stand in one line.
    function test_needsTheWidthOfItsHeader() {
        open("DejaVu Sans", 16);
        const isInOneLine = width => {
            window.width = width;
            tryVerify(() => content().width === width);
            Pixels.layOut(window.contentItem);
            const title = textOf(content(), "Conversion Queue");
            const folder = textOf(content(), "Folder");
            return folder.mapToGlobal(0, 0).y < title.mapToGlobal(0, title.height).y;
        };
        const needed = Math.ceil(content().implicitWidth);
        verify(needed > 960 && needed < 1400, needed);
        verify(isInOneLine(needed));
        verify(!isInOneLine(needed - 3));
    }

    function test_followsTheFontUntilTheUserHasResizedIt() {
        Bench.setFont("DejaVu Sans", 12);
        tryVerify(() => window.height > 640);
        compare(scrollBars(), 0);
        Bench.setFont("DejaVu Sans", 9);
        tryCompare(window, "height", 640);
        window.height = 650;
        Bench.setFont("DejaVu Sans", 12);
        wait(50);
        compare(window.height, 650);
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
