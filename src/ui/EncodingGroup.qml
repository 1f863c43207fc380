// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// What the encoder aims at, and what that means.
ColumnLayout {
    id: group

    required property ConverterViewModel model

    readonly property string description: {
        if (model.isProRes)
            return "Size is defined by the selected ProRes profile.";
        switch (model.goalIndex) {
        case EncodingGoal.SameSize:
            return "Matches the source video bitrate. Similar size, with some quality loss from AV1 to H.264.";
        case EncodingGoal.Balanced:
            return "Uses 1.6× source bitrate for H.264 or 1.2× for HEVC—a practical size/quality compromise.";
        default:
            return "Prioritizes visual quality. Output size can be much larger than AV1.";
        }
    }

    /// What the quality row takes when it is shown, while it is not.
    readonly property real unusedHeight: quality.active ? 0 : quality.leastHeight + spacing

    spacing: 9

    SectionLabel {
        text: "ENCODING GOAL"
    }

    DropDown {
        Accessible.name: "Encoding goal"
        Layout.fillWidth: true
        currentIndex: group.model.goalIndex
        enabled: !group.model.isProRes
        model: group.model.goalLabels
        onActivated: index => group.model.goalIndex = index
    }

    // Read, with the fonts that it takes, when it is first shown.
    Loader {
        id: quality

        /// Of its slider, or of its text, which is of one line.
        readonly property real leastHeight: Math.max(20, Theme.scaled(18))

        Layout.fillWidth: true
        active: group.model.goalIndex === EncodingGoal.ConstantQuality && !group.model.isProRes
        visible: active
        Component.onCompleted: setSource("QualityRow.qml", {"model": group.model})
    }

    TextLine {
        Accessible.name: group.description
        Layout.fillWidth: true
        color: Theme.dark.secondary
        font: Theme.caption
        text: WordWrap.broken(group.description, font, width)
        wrapMode: Text.Wrap
    }
}
