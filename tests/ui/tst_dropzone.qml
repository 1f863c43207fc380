// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "DropZone"

    Component {
        id: zones

        DropZone {
            height: 460
            model: Bench.model
            width: 649
        }
    }

    function outline() {
        return one(view, SmoothRectangle);
    }

    function button(text) {
        return one(view, BorderedButton, button => button.text === text);
    }

    function test_texts() {
        show(zones);
        compare(texts(view), ["Drop videos or folders here", "Queue a single clip or an entire folder tree.",
                              "Choose Videos", "Choose Folder"]);
        compareFont(textOf(view, "Drop videos or folders here"), 15, Font.Bold);
        compareFont(textOf(view, "Queue a single clip or an entire folder tree."), 12, Font.Normal);
    }

    function test_badge() {
        show(zones);
        const disc = one(view, Rectangle, item => item.width === 112);
        const ring = one(view, Rectangle, item => item.width === 88);
        const symbol = symbolOf(view, Symbol.ArrowDownDocFill);
        compare([disc.height, ring.height], [112, 88]);
        compare([disc.radius, ring.radius], [56, 44]);
        for (const layer of [disc, ring, symbol]) {
            fuzzyCompare(area(layer).x + layer.width / 2, 649 / 2, 0.51);
            fuzzyCompare(middle(layer), middle(disc), 0.51);
        }
        compare(ring.border.width, 1);
        compare(ring.color.a, 0);
        inBothSchemes(() => {
            compare(disc.color, Qt.alpha(Theme.current.accent, 0.1));
            compare(ring.border.color, Qt.alpha(Theme.current.accent, 0.25));
            compare(symbol.color, Theme.current.accent);
            // What is drawn, without the air around it.
            const drawn = Pixels.drawnArea(symbol, Theme.current.accent);
            fuzzyCompare(drawn.height, 35, 1);
            fuzzyCompare(drawn.y + drawn.height / 2, symbol.height / 2, 1);
        });
    }

    function test_badgeIsRound() {
        show(zones);
        const disc = one(view, Rectangle, item => item.width === 112);
        compare(Pixels.at(disc, 2, 2), Theme.current.window);
        const inside = Pixels.at(disc, 56, 6);
        verify(!Qt.colorEqual(inside, Theme.current.window));
        // The ring is 12 inside the disc, and deeper.
        verify(Pixels.at(disc, 56, 12).g < inside.g - 0.02);
        compare(Pixels.at(disc, 56, 16), inside);
    }

    function test_measures() {
        show(zones);
        const disc = one(view, Rectangle, item => item.width === 112);
        const title = textOf(view, "Drop videos or folders here");
        const line = textOf(view, "Queue a single clip or an entire folder tree.");
        const videos = button("Choose Videos");
        const folder = button("Choose Folder");
        compare(gapBelow(disc, title), 8 + 12);
        compare(gapBelow(title, line), 8);
        compare(gapBelow(line, videos), 8 + 12);
        compare(gapBeside(videos, folder), 8);
        compare(area(videos).y, area(folder).y);
        for (const item of [title, line])
            fuzzyCompare(area(item).x + item.width / 2, 649 / 2, 0.51);
        fuzzyCompare((area(videos).x + area(folder).x + folder.width) / 2, 649 / 2, 0.51);
        // The flexible spaces put the column in the middle.
        const above = area(disc).y;
        const below = 460 - area(folder).y - folder.height;
        fuzzyCompare(above, below, 1);
        verify(!(videos instanceof ProminentButton || folder instanceof ProminentButton));
    }

    function test_outline() {
        show(zones);
        // 20 from the zone's edges, within 6 to the left and right.
        compareArea(outline(), 26, 20, 649 - 52, 460 - 40);
        compare(outline().radius, 18);
        compare(outline().dash, 7);
        compare(outline().color.a, 0);
        inBothSchemes(() => {
            Bench.model.isDropTargeted = false;
            compare(outline().borderWidth, 1);
            compare(outline().borderColor, Qt.alpha(Theme.current.secondary, 0.2));
            Bench.model.isDropTargeted = true;
            compare(outline().borderWidth, 2);
            compare(outline().borderColor, Theme.current.accent);
            settle();
            verify(Pixels.count(outline(), Theme.current.accent) > 300);
            Bench.model.isDropTargeted = false;
            compare(outline().borderWidth, 1);
            compare(outline().borderColor, Qt.alpha(Theme.current.secondary, 0.2));
        });
    }

    function test_outlineIsDashed() {
        Bench.model.isDropTargeted = true;
        show(zones);
        // Along the upper edge, which is straight between the corners.
        const changes = [];
        let was = null;
        for (let x = 60; x < 200; ++x) {
            const isPurple = Qt.colorEqual(Pixels.at(outline(), x, 0), Theme.current.accent);
            if (was !== null && isPurple !== was)
                changes.push(x);
            was = isPurple;
        }
        verify(changes.length >= 18, changes);
        fuzzyCompare((changes[changes.length - 1] - changes[0]) / (changes.length - 1), 7, 0.2);
    }

    function test_fillsWhatItIsGiven() {
        show(zones, {"width": 900, "height": 600});
        compareArea(outline(), 26, 20, 900 - 52, 560);
        view.width = 500;
        view.height = 330;
        settle();
        compareArea(outline(), 26, 20, 500 - 52, 290);
        for (const text of all(view, Text))
            verify(area(text).y >= 0 && area(text).y + text.height <= 330, text.text);
    }

    function test_theWholeZoneTakesDrops() {
        show(zones);
        compareArea(one(view, FileDropArea), 0, 0, 649, 460);
    }

    function test_buttonsOpenOnePanelEach_data() {
        return [
            {"tag": "Choose Videos", "panel": "Choose videos to convert"},
            {"tag": "Choose Folder", "panel": "Choose a folder of videos"},
        ];
    }

    function test_buttonsOpenOnePanelEach(data) {
        show(zones);
        mouseClick(button(data.tag));
        compare(Bench.openedPanels, []); // before the click is over
        tryVerify(() => Bench.openedPanels.length > 0);
        compare(Bench.openedPanels, [data.panel]);
        button(data.tag).forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        tryVerify(() => Bench.openedPanels.length > 1);
        compare(Bench.openedPanels, [data.panel, data.panel]);
    }

    function test_readableInBothSchemes() {
        show(zones);
        inBothSchemes(() => {
            compare(textOf(view, "Drop videos or folders here").color, Theme.current.text);
            compare(textOf(view, "Queue a single clip or an entire folder tree.").color,
                    Theme.current.secondary);
            verifyContrast(view);
            // Of something this large less is enough.
            const symbol = symbolOf(view, Symbol.ArrowDownDocFill);
            verify(Pixels.contrast(symbol, symbol.color) >= 3);
        });
    }
}
