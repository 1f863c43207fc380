// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// A continuous slider.
T.Slider {
    id: slider

    /// What it shows, brought to the nearer end where it lies outside.
    required property real setting

    /// The user, by whatever means, wants that to be the setting.
    signal chosen(value: real)

    // What assistive technology reads beside the value.
    readonly property real minimumValue: from
    readonly property real maximumValue: to

    /// How far a key moves it.
    property real keyStep: 1

    function moveBy(offset: real) {
        chosen(Math.max(from, Math.min(to, value + offset)));
    }

    function moveWithinReachBy(offset: real) {
        if (Reach.includes(slider))
            moveBy(offset);
    }

    Accessible.description: enabled ? "" : "unavailable"
    focusPolicy: Qt.StrongFocus
    implicitHeight: 20
    implicitWidth: 120
    value: setting
    Accessible.onDecreaseAction: moveWithinReachBy(-keyStep)
    Accessible.onIncreaseAction: moveWithinReachBy(keyStep)
    // Assistive technology sets the value itself.
    onValueChanged: {
        if (value === Math.max(from, Math.min(to, setting)))
            return;
        if (Reach.includes(slider))
            chosen(value);
        else
            value = Qt.binding(() => setting);
    }

    Keys.onPressed: event => {
        switch (event.key) {
        case Qt.Key_Left:
        case Qt.Key_Down:
            moveBy(-keyStep);
            break;
        case Qt.Key_Right:
        case Qt.Key_Up:
            moveBy(keyStep);
            break;
        case Qt.Key_PageDown:
            moveBy(-10 * keyStep);
            break;
        case Qt.Key_PageUp:
            moveBy(10 * keyStep);
            break;
        case Qt.Key_Home:
            moveBy(from - value);
            break;
        case Qt.Key_End:
            moveBy(to - value);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    background: Rectangle {
        border.color: slider.Scheme.colors.controlBorder
        border.width: slider.Scheme.colors.edge
        color: slider.Scheme.colors.track
        height: 4 + 2 * border.width
        radius: height / 2
        width: slider.availableWidth
        x: slider.leftPadding
        y: slider.topPadding + (slider.availableHeight - height) / 2

        Rectangle {
            border.color: slider.Scheme.colors.controlBorder
            border.width: slider.Scheme.colors.edge
            color: slider.Scheme.colors.accentFill
            height: parent.height
            radius: parent.radius
            width: slider.handle.x - slider.leftPadding + slider.handle.width / 2
        }
    }

    handle: Rectangle {
        border.color: Theme.knobBorder
        border.width: 1
        color: slider.pressed ? Theme.knobPressed : Theme.white
        height: width
        radius: width / 2
        width: 16
        x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
        y: slider.topPadding + (slider.availableHeight - height) / 2

        FocusRing {
            cornerRadius: parent.radius
            visible: slider.visualFocus
        }
    }
}
