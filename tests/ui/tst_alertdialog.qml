// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

ViewTest {
    id: test

    name: "AlertDialog"

    Component {
        id: stages

        Item {
            property alias alert: dialog

            height: 640
            width: 960

            BorderedButton {
                text: "Behind"
                onClicked: ++test.presses
            }

            AlertDialog {
                id: dialog

                model: Bench.model
            }
        }
    }

    property int presses: 0

    /// Has the controller say something, the same each time.
    function raise() {
        if (Bench.model.jobCount === 0)
            Bench.queue(["a.mp4"]);
        Bench.model.start();
        verify(Bench.model.alertMessage !== "");
        settle();
    }

    function shown() {
        return all(overlay, Text).map(text => text.text);
    }

    function okButton() {
        return one(overlay, ProminentButton);
    }

    function verifyGone() {
        tryVerify(() => !view.alert.visible);
        compare(Bench.model.alertMessage, "");
        compare(shown(), []);
    }

    function test_isAbsentWithoutAMessage() {
        show(stages);
        verify(!view.alert.visible);
        compare(shown(), []);
    }

    function test_showsTheMessage() {
        show(stages);
        raise();
        verify(view.alert.opened);
        verify(view.alert.modal);
        compare(shown(), ["Quorvale", Bench.model.alertMessage, "OK"]);
        compare(all(overlay, BorderedButton).length, 1);
        compareFont(one(overlay, Text, text => text.text === "Quorvale"), 15, Font.Bold);
        compareFont(one(overlay, Text, text => text.text === Bench.model.alertMessage), 13, Font.Normal);
    }

    function test_showsAMessageThatWasThereBefore() {
        raise();
        show(stages);
        tryVerify(() => view.alert.opened);
        compare(shown()[1], Bench.model.alertMessage);
    }

    function test_dismissing_data() {
        return [
            {"tag": "OK", "dismiss": () => mouseClick(okButton())},
            {"tag": "Return", "dismiss": () => keyClick(Qt.Key_Return)},
            {"tag": "Enter", "dismiss": () => keyClick(Qt.Key_Enter)},
            {"tag": "Space", "dismiss": () => keyClick(Qt.Key_Space)},
            {"tag": "Escape", "dismiss": () => keyClick(Qt.Key_Escape)},
        ];
    }

    function test_dismissing(data) {
        show(stages);
        raise();
        const first = Bench.model.alertMessage;
        data.dismiss();
        verifyGone();
        // The same text again.
        raise();
        compare(Bench.model.alertMessage, first);
        verify(view.alert.opened);
        compare(shown(), ["Quorvale", first, "OK"]);
        data.dismiss();
        verifyGone();
        compare(Bench.openedPanels, []);
        verify(!Bench.model.isConverting);
    }

    function test_isNotDismissedByAKeyHeldSinceBefore_data() {
        return [
            {"tag": "Return", "key": Qt.Key_Return},
            {"tag": "Enter", "key": Qt.Key_Enter},
            {"tag": "Space", "key": Qt.Key_Space},
        ];
    }

    function test_isNotDismissedByAKeyHeldSinceBefore(data) {
        show(stages);
        keyPress(data.key);
        raise();
        Bench.repeatKey(data.key, 5);
        keyRelease(data.key);
        wait(50);
        verify(view.alert.opened);
        verify(Bench.model.alertMessage !== "");
        keyClick(data.key);
        verifyGone();
    }

    function test_goesWhenTheControllerClearsIt() {
        show(stages);
        raise();
        Bench.model.clearAlert();
        verifyGone();
    }

    function test_followsAnotherMessage() {
        show(stages);
        raise();
        const first = Bench.model.alertMessage;
        Bench.chooseDestination("/out");
        Bench.removeTool();
        Bench.model.start();
        settle();
        verify(Bench.model.alertMessage !== first);
        verify(view.alert.opened);
        compare(shown(), ["Quorvale", Bench.model.alertMessage, "OK"]);
    }

    function test_blocksWhatIsBehindIt() {
        show(stages);
        presses = 0;
        const behind = one(view, BorderedButton);
        raise();
        mouseClick(behind);
        verify(view.alert.opened);
        compare(presses, 0);
        keyClick(Qt.Key_Tab);
        verify(!behind.activeFocus);
        mouseClick(okButton());
        verifyGone();
        mouseClick(behind);
        compare(presses, 1);
    }

    function test_takesTheKeyboard() {
        show(stages);
        presses = 0;
        const behind = one(view, BorderedButton);
        behind.forceActiveFocus(Qt.TabFocusReason);
        raise();
        verify(okButton().activeFocus);
        keyClick(Qt.Key_Return);
        verifyGone();
        compare(presses, 0);
    }

    function test_standsInTheMiddle() {
        show(stages);
        raise();
        const found = area(view.alert.background, view);
        fuzzyCompare(found.x + found.width / 2, 480, 0.51);
        fuzzyCompare(found.y + found.height / 2, 320, 0.51);
    }

    function test_itsEdgesStandApartFromTheSidebars() {
        show(stages); // as large as the smallest window
        raise();
        const found = area(view.alert.background, view);
        verify(found.x <= 302 && found.x + found.width >= 320, found); // the sidebar ends at 310
    }

    function test_hasRoomForItsText() {
        show(stages);
        raise();
        const text = one(overlay, Text, text => text.text === Bench.model.alertMessage);
        verify(!text.truncated);
        verify(text.contentWidth <= text.width);
        verify(text.contentHeight <= text.height);
        const box = area(view.alert.background, view);
        const ok = area(okButton(), view);
        verify(ok.y >= area(text, view).y + text.height);
        verify(ok.y + ok.height <= box.y + box.height);
    }

    function test_wrapsALongMessage() {
        Bench.queue(["a.mp4"]);
        Bench.chooseDestination("/out");
        Bench.removeTool();
        show(stages);
        raise();
        const text = one(overlay, Text, text => text.text === Bench.model.alertMessage);
        compare(text.lineCount, 2);
        compare(text.horizontalAlignment, Text.AlignHCenter);
        verify(text.contentWidth <= text.width);
        compare(view.alert.width, 360);
        compare(textOf(overlay, "Quorvale").Accessible.role, Accessible.Heading);
    }

    function test_darkensWhatIsBehindIt() {
        show(stages);
        const before = Pixels.at(view, 900, 600);
        raise();
        tryVerify(() => Pixels.at(view, 900, 600).hslLightness < before.hslLightness - 0.1);
        verifyShadow(view.alert.background);
    }

    function test_readableInBothSchemes() {
        show(stages);
        raise();
        inBothSchemes(() => verifyContrast(overlay));
    }
}
