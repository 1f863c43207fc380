// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// The heading of a group of settings.
TextLine {
    Accessible.role: Accessible.Heading
    color: Theme.dark.secondary
    font: Theme.sectionLabel
}
