// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace quorvale {

/// Whether Linux shows, in the file system at `root`, a graphics processor that this process may
/// use. True on other systems, which do not say.
bool hasGraphicsProcessor(const QString &root = QStringLiteral("/"));

/// Has Qt Quick draw by itself where OpenGL would be software only, as in many virtual machines and
/// on remote desktops: the window is there sooner and takes less memory and processor time. Left
/// alone where the user's environment says how Qt Quick is to draw. To be called on the main thread
/// when the QGuiApplication is there and before any window is.
void chooseRenderer();

} // namespace quorvale
