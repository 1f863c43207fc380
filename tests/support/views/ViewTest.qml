// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import QtTest
import Quorvale.Style
import Quorvale.Testing

// A test of one of the window's views. Any warning fails it.
TestCase {
    id: test

    /// What show() showed.
    property Item view: null

    /// What popups and tooltips are in.
    readonly property Item overlay: T.Overlay.overlay

    height: 640
    when: windowShown
    width: 960

    function init() {
        failOnWarning(/.?/);
        Bench.begin();
        restPointer();
    }

    function cleanupTestCase() {
        Bench.begin();
    }

    /// Takes the pointer from whatever it is on.
    function restPointer() {
        mouseMove(test.Window.window.contentItem, 959, 639);
    }

    Component {
        id: ground

        Rectangle {
            Scheme.colors: Theme.current
            anchors.fill: parent
            color: Theme.current.window
        }
    }

    /// Shows the view, of the properties' size or its own, in the window's corner.
    function show(component, properties) {
        const below = createTemporaryObject(ground, test.Window.window.contentItem);
        view = component.createObject(below, properties ?? {});
        verify(view);
        settle();
        return view;
    }

    /// Waits until everything stands where it belongs.
    function settle() {
        wait(0);
        Pixels.layOut(test.Window.window.contentItem);
    }

    /// What has the keyboard.
    function focusItem() {
        return test.Window.window.activeFocusItem;
    }

    /// The shown items of the type below the item, outermost first, that pass the check.
    function all(item, type, check) {
        let found = [];
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i];
            if (!child.visible)
                continue;
            if (child instanceof type && (!check || check(child)))
                found.push(child);
            found = found.concat(all(child, type, check));
        }
        return found;
    }

    /// The only one of them.
    function one(item, type, check) {
        const found = all(item, type, check);
        compare(found.length, 1, type + " found");
        return found[0];
    }

    /// The texts that the item shows, in the order of its code.
    function texts(item) {
        return all(item, Text, text => text.text !== "").map(text => text.text);
    }

    function shows(item, text) {
        return texts(item).includes(text);
    }

    /// The only text that reads so.
    function textOf(item, text) {
        return one(item, Text, candidate => candidate.text === text);
    }

    function symbolOf(item, name) {
        return one(item, Symbol, symbol => symbol.name === name);
    }

    /// The text of the tooltip that is shown, or null.
    function tip() {
        const found = all(overlay, Text);
        return found.length > 0 ? found[0] : null;
    }

    /// Rests the pointer on a place of the item and compares the tooltip that this brings up.
    function compareTip(item, x, y, text) {
        restPointer();
        mouseMove(item, x, y);
        tryVerify(() => tip() !== null, 3000, "a tooltip");
        compare(tip().text, text);
        verify(tip().width <= 420, "a tooltip that wraps");
        verify(tip().contentWidth <= tip().width + 0.5 && tip().contentHeight <= tip().height + 0.5,
               "the whole text");
        restPointer();
        tryVerify(() => tip() === null);
    }

    function verifyNoTip(item, x, y) {
        restPointer();
        mouseMove(item, x, y);
        wait(1500);
        compare(tip(), null);
        restPointer();
    }

    /// Where the item is in another, the view at first.
    function area(item, within) {
        return (within ?? view).mapFromItem(item, 0, 0, item.width, item.height);
    }

    function compareArea(item, x, y, width, height, within) {
        const found = area(item, within);
        fuzzyCompare(found.x, x, 0.51, "x");
        fuzzyCompare(found.y, y, 0.51, "y");
        fuzzyCompare(found.width, width, 0.51, "width");
        fuzzyCompare(found.height, height, 0.51, "height");
    }

    /// How far the second item stands below the first.
    function gapBelow(first, second) {
        return area(second).y - area(first).y - area(first).height;
    }

    /// How far the second item stands to the right of the first.
    function gapBeside(first, second) {
        return area(second).x - area(first).x - area(first).width;
    }

    function middle(item) {
        return area(item).y + area(item).height / 2;
    }

    function compareFont(text, pixelSize, weight) {
        compare(text.font.pixelSize, pixelSize);
        compare(text.font.weight, weight);
    }

    /// That every text and the symbols that pass the check can be read where they stand, also what
    /// cannot be used where the user wants more contrast.
    function verifyContrast(item, checkSymbol) {
        settle();
        const items = all(item, Text, text => text.text !== "");
        verify(items.length > 0);
        for (const readable of items.concat(checkSymbol ? all(item, Symbol, checkSymbol) : [])) {
            if (!readable.enabled && !Bench.hasContrast)
                continue;
            const contrast = Pixels.contrast(readable, readable.color);
            verify(contrast >= (Bench.hasContrast ? 7 : 4.5), (readable.text ?? "symbol " + readable.name) + ": " + contrast
                   + " on " + Pixels.around(readable));
        }
    }

    /// That what pops up stands out from what is below it, which is plain there.
    function verifyShadow(ground) {
        settle();
        const below = distance => Pixels.at(ground, ground.width / 2, ground.height + distance);
        verify(below(1).hslLightness < below(30).hslLightness, below(1) + " " + below(30));
        compare(below(30), below(31));
    }

    /// Runs the check in both of the desktop's schemes.
    function inBothSchemes(check) {
        for (const isDark of [false, true]) {
            Bench.isDark = isDark;
            settle();
            compare(Theme.current, isDark ? Theme.dark : Theme.light);
            check(isDark);
        }
    }
}
