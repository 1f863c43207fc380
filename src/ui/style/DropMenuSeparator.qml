// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// Parts the commands of a menu.
T.MenuSeparator {
    id: separator

    property ColorScheme scheme: Theme.dark

    implicitHeight: 9
    implicitWidth: 216

    contentItem: Item {
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            color: separator.scheme.separator
            height: 1
            width: parent.width
        }
    }
}
