// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "Theme"

    function test_textStyles_data() {
        return [
            {"tag": "title2Bold", "pixelSize": 17, "weight": Font.Bold},
            {"tag": "title3Bold", "pixelSize": 15, "weight": Font.Bold},
            {"tag": "body", "pixelSize": 13, "weight": Font.Normal},
            {"tag": "bodyMedium", "pixelSize": 13, "weight": Font.Medium},
            {"tag": "bodySemibold", "pixelSize": 13, "weight": Font.DemiBold},
            {"tag": "subheadline", "pixelSize": 12, "weight": Font.Normal},
            {"tag": "subheadlineSemibold", "pixelSize": 12, "weight": Font.DemiBold},
            {"tag": "caption", "pixelSize": 11, "weight": Font.Normal},
            {"tag": "captionFixed", "pixelSize": 11, "weight": Font.DemiBold},
            {"tag": "caption2", "pixelSize": 11, "weight": Font.Normal},
            {"tag": "sectionLabel", "pixelSize": 10, "weight": Font.Bold},
        ];
    }

    function test_textStyles(data) {
        const font = Theme[data.tag];
        compare([font.pixelSize, font.weight], [data.pixelSize, data.weight]);
    }

    function test_textStylesGrowWithTheDesktopsFont_data() {
        return [
            {"tag": "9 points", "points": 9, "styles": {"title2Bold": 16, "title3Bold": 14, "body": 12, "bodyMedium": 12,
                                                        "subheadline": 11, "caption": 11, "captionFixed": 11, "sectionLabel": 10},
             "control": 24},
            {"tag": "11 points", "points": 11, "styles": {"title2Bold": 19, "title3Bold": 17, "body": 14, "bodyMedium": 14,
                                                          "subheadline": 14, "caption": 12, "captionFixed": 12, "sectionLabel": 11},
             "control": 29},
            {"tag": "16 points", "points": 16, "styles": {"title2Bold": 28, "title3Bold": 25, "body": 21, "bodyMedium": 21,
                                                          "subheadline": 20, "caption": 18, "captionFixed": 18, "sectionLabel": 16},
             "control": 43},
        ];
    }

    function test_textStylesGrowWithTheDesktopsFont(data) {
        Bench.setFont("DejaVu Sans", data.points);
        for (const name in data.styles)
            compare(Theme[name].pixelSize, data.styles[name], name);
        for (const name of ["title2Bold", "body", "bodySemibold", "subheadline", "caption", "sectionLabel"])
            compare(Theme[name].family, "DejaVu Sans", name);
        compare(Theme.body.pointSize, data.points);
        compare(Theme.controlHeight, data.control);
        Bench.setFont("DejaVu Serif", 10);
        compare([Theme.body.family, Theme.body.pointSize], ["DejaVu Serif", 10]);
    }

    function test_followsThePalette() {
        compare(Theme.current, Theme.light);
        compare(Theme.current.window, SystemLook.window);
        Bench.isDark = true;
        compare(Theme.current, Theme.dark);
        compare(Theme.current.window, SystemLook.window);
        Bench.isDark = false;
        compare(Theme.current, Theme.light);
    }

    function test_followsTheWishForContrast() {
        inBothSchemes(isDark => {
            const usual = [Theme.current, Theme.current.window];
            for (const line of ["separator", "outline", "controlBorder", "popupBorder", "tertiary"])
                verify(!Qt.colorEqual(Theme.current[line], Theme.current.text), line);
            compare(Theme.current.edge, 0);
            Bench.hasContrast = true;
            compare(Theme.current, isDark ? Theme.dark : Theme.light);
            for (const line of ["separator", "outline", "controlBorder", "popupBorder", "tertiary"])
                verify(Qt.colorEqual(Theme.current[line], Theme.current.text), line);
            verify(Theme.current.edge > 0);
            Bench.hasContrast = false;
            compare([Theme.current, Theme.current.window], usual);
        });
    }

    function test_windowColours_data() {
        return [
            {"tag": "#efefef", "isKept": true},
            {"tag": "#eff0f1", "isKept": true},
            {"tag": "#fafafa", "isKept": true},
            {"tag": "#eaeaea", "isKept": true},
            {"tag": "#e6e6e6", "isKept": false}, // for the current row
            {"tag": "#d4d0c8", "isKept": false},
            {"tag": "#808080", "isKept": false},
            {"tag": "#505050", "isKept": false},
            {"tag": "#383838", "isKept": false}, // for the current row
            {"tag": "#353535", "isKept": true},
            {"tag": "#2a2e32", "isKept": true},
            {"tag": "#1f1f23", "isKept": true},
            {"tag": "#fafafa with contrast", "isKept": true},
            {"tag": "#d4d0c8 with contrast", "isKept": false},
            {"tag": "#353535 with contrast", "isKept": false},
            {"tag": "#242424 with contrast", "isKept": true},
        ];
    }

    // The palette's, unless the texts could not be read on it.
    function test_windowColours(data) {
        const color = data.tag.split(" ")[0];
        Bench.windowColor = color;
        Bench.hasContrast = data.tag !== color;
        compare(Theme.current, Bench.isDark ? Theme.dark : Theme.light);
        compare(Qt.colorEqual(Theme.current.window, color), data.isKept, Theme.current.window);
        for (const ground of [Theme.current.window, Qt.tint(Theme.current.window, Theme.current.rowCurrent)]) {
            show(grounds, {"color": ground});
            for (const text of ["text", "secondary", "accent", "green", "red"]) {
                const contrast = Pixels.contrast(view.children[0], Theme.current[text]);
                verify(contrast >= readable(), text + ": " + contrast);
            }
        }
    }

    function readable() {
        return Bench.hasContrast ? 7 : 4.5;
    }

    /// With each of the data for both of the desktop's contrasts.
    function ofBothContrasts(data) {
        return data.concat(data.map(row => Object.assign({}, row, {"tag": row.tag + ", with contrast",
                                                                   "hasContrast": true})));
    }

    // The other scheme is also usable, because the settings may ask for it.
    function test_theOtherSchemeHasAWindowOfItsOwn() {
        for (const isDark of [false, true]) {
            Bench.isDark = isDark;
            verify(Theme.light.window.hslLightness > 0.8);
            verify(Theme.dark.window.hslLightness < 0.3);
        }
    }

    function test_anAnswerToThePointerCanBeSeen_data() {
        return ofBothContrasts([
            {"tag": "bordered", "grounds": ["control", "controlHovered", "controlPressed"]},
            {"tag": "prominent", "grounds": ["accentFill", "accentFillHovered", "accentFillPressed"]},
            {"tag": "track", "grounds": ["track", "trackHovered", "trackPressed"]},
            {"tag": "without a bezel", "grounds": ["window", "rowHovered", "rowPressed"]},
            {"tag": "current row", "grounds": ["window", "rowCurrent"]},
        ]);
    }

    // Each of the grounds differs from the others by a tenth at least.
    function test_anAnswerToThePointerCanBeSeen(data) {
        Bench.hasContrast = data.hasContrast ?? false;
        for (const isDark of [false, true]) {
            Bench.isDark = isDark;
            const colors = data.grounds.map(ground => Theme.current[ground]);
            for (const [one, other] of [[0, 1], [1, 2], [0, 2]].filter(pair => pair[1] < colors.length)) {
                const contrast = Pixels.contrastBetween(colors[one], colors[other], Theme.current.window);
                verify(contrast >= 1.1, data.grounds[one] + " and " + data.grounds[other] + ": " + contrast);
            }
        }
    }

    function test_cuesCanBeSeen_data() {
        const data = [];
        for (const scheme of ["light", "dark"]) {
            for (const ground of ["window", "popup", "rowHovered", "rowCurrent"])
                data.push({"tag": `tertiary on ${scheme} ${ground}`, "text": "tertiary", "scheme": scheme, "ground": ground});
            data.push({"tag": `disabled on ${scheme}`, "text": "secondary", "scheme": scheme, "ground": "track"});
        }
        return ofBothContrasts(data);
    }

    function test_cuesCanBeSeen(data) {
        Bench.isDark = data.scheme === "dark";
        Bench.hasContrast = data.hasContrast ?? false;
        const scheme = Theme[data.scheme];
        show(grounds, {"color": scheme[data.ground]});
        const contrast = Pixels.contrast(view.children[0], scheme[data.text]);
        verify(contrast >= (Bench.hasContrast ? 7 : 3), contrast);
    }

    function test_coloursCanBeReadOnTheirGround_data() {
        const data = [];
        for (const scheme of ["light", "dark"]) {
            const add = (texts, grounds) => {
                for (const text of texts) {
                    for (const ground of grounds)
                        data.push({"tag": `${text} on ${scheme} ${ground}`, "scheme": scheme,
                                   "ground": ground, "text": text});
                }
            };
            add(["text", "secondary", "accent", "green", "red"], ["window", "popup", "rowHovered", "rowCurrent"]);
            add(["text", "secondary"], ["rowPressed"]);
            add(["text", "red"], ["control", "controlHovered", "controlPressed"]);
            add(["white"], ["accentFill", "accentFillHovered", "accentFillPressed"]);
        }
        return ofBothContrasts(data);
    }

    function test_coloursCanBeReadOnTheirGround(data) {
        Bench.isDark = data.scheme === "dark";
        Bench.hasContrast = data.hasContrast ?? false;
        const scheme = Theme[data.scheme];
        show(grounds, {"color": scheme[data.ground]});
        const contrast = Pixels.contrast(view.children[0], data.text === "white" ? Theme.white
                                                                                 : scheme[data.text]);
        verify(contrast >= readable(), contrast);
    }

    Component {
        id: grounds

        Rectangle {
            height: 40
            width: 40

            Item {
                height: 20
                width: 20
                x: 10
                y: 10
            }
        }
    }
}
