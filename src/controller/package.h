// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

namespace quorvale {

/// Whether a folder called `name` is a package: a folder that the user is to take for one file,
/// such as an application or a photo library. Told by the extension, as on systems that have no
/// other mark for it.
bool isPackage(QByteArrayView name);

} // namespace quorvale
