// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "SidebarHeader"

    Component {
        id: headers

        Rectangle {
            color: Theme.sidebarStart
            height: 100
            width: 310

            SidebarHeader {
                x: 24
                y: 24
            }
        }
    }

    function test_texts() {
        show(headers);
        compare(texts(view), ["Quorvale", "Premiere-ready video"]);
        const title = textOf(view, "Quorvale");
        compareFont(title, 17, Font.Bold);
        compare(title.color, Theme.white);
        const caption = textOf(view, "Premiere-ready video");
        compareFont(caption, 11, Font.Normal);
        compare(caption.color, Theme.dark.secondary);
    }

    function test_measures() {
        show(headers);
        const tile = one(view, AppTile);
        compareArea(tile, 24, 24, 44, 44);
        const title = textOf(view, "Quorvale");
        const caption = textOf(view, "Premiere-ready video");
        compare(gapBeside(tile, title), 12);
        compare(area(caption).x, area(title).x);
        verify(area(caption).y >= area(title).y + title.height);
        // Both lines together are centred on the tile.
        const top = area(title).y;
        const bottom = area(caption).y + caption.height;
        fuzzyCompare((top + bottom) / 2, middle(tile), 0.51);
    }

    function test_tile() {
        show(headers);
        const ground = one(view, SmoothRectangle);
        compareArea(ground, 24, 24, 44, 44);
        compare(ground.radius, 12);
        compare(ground.color, Theme.purple);
        compare(ground.endColor, Theme.blue);
        const symbol = symbolOf(view, Symbol.SparklesTv);
        compare(symbol.color, Theme.white);
        compare(area(symbol).x + symbol.width / 2, 24 + 22);
        compare(middle(symbol), 24 + 22);
    }

    function test_tileGoesFromPurpleToBlue() {
        show(headers);
        const tile = one(view, AppTile);
        const start = Pixels.at(tile, 6, 6);
        const end = Pixels.at(tile, 37, 37);
        verify(start.r > end.r + 0.3, start + " " + end);
        verify(end.b > end.r, end);
        // Along the other diagonal nothing changes.
        fuzzyCompare(Pixels.at(tile, 6, 37).r, Pixels.at(tile, 37, 6).r, 0.03);
    }

    function test_tileGlows() {
        show(headers);
        const glow = one(view, Glow);
        compareArea(glow, 24, 24, 44, 44);
        compare(glow.radius, 12);
        compare(glow.blur, 12);
        fuzzyCompare(glow.color.a, 0.35, 0.01);
        verify(Qt.colorEqual(Qt.alpha(glow.color, 1), Theme.purple));
        // The same on every side, and fading.
        const tile = one(view, AppTile);
        const near = [Pixels.at(tile, 22, -3), Pixels.at(tile, 22, 46), Pixels.at(tile, -3, 22),
                      Pixels.at(tile, 46, 22)];
        for (const place of near) {
            verify(place.r > Theme.sidebarStart.r + 0.03, place);
            fuzzyCompare(place.r, near[0].r, 0.01);
        }
        verify(Pixels.at(tile, 22, -8).r < near[0].r);
    }

    function test_readableInBothSchemes() {
        show(headers);
        inBothSchemes(() => verifyContrast(view));
    }
}
