// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// How good the picture is to be, where that is what the encoder aims at.
RowLayout {
    id: row

    required property ConverterViewModel model

    spacing: Theme.spacing

    AccentSlider {
        Accessible.name: "Quality"
        Layout.fillWidth: true
        from: 30
        setting: row.model.quality
        to: 100
        onChosen: value => row.model.quality = value
    }

    TextLine {
        Layout.preferredWidth: Theme.scaled(38)
        color: Theme.white
        font: Theme.captionFixed
        horizontalAlignment: Text.AlignHCenter
        text: Math.trunc(row.model.quality) + "%"
    }
}
