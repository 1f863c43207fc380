// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// Parts the commands of a menu.
T.MenuSeparator {
    id: separator

    implicitHeight: 9
    implicitWidth: 0

    contentItem: Item {
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            color: separator.Scheme.colors.separator
            height: 1
            width: parent.width
        }
    }
}
