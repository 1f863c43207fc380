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

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spacing
        visible: group.model.goalIndex === EncodingGoal.ConstantQuality && !group.model.isProRes

        AccentSlider {
            Accessible.name: "Quality"
            Layout.fillWidth: true
            from: 30
            setting: group.model.quality
            to: 100
            onChosen: value => group.model.quality = value
        }

        TextLine {
            Layout.preferredWidth: 38
            color: Theme.white
            font: Theme.captionFixed
            horizontalAlignment: Text.AlignHCenter
            text: Math.trunc(group.model.quality) + "%"
        }
    }

    TextLine {
        Layout.fillWidth: true
        color: Theme.dark.secondary
        font: Theme.caption
        text: group.description
        wrapMode: Text.Wrap
    }
}
