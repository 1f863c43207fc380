// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace quorvale::test {

/// The types of the top-level atoms of the MP4 or QuickTime file at `path`, in their order (the
/// boxes of ISO/IEC 14496-12). Empty unless the atoms fill the file exactly.
QList<QByteArray> topLevelAtoms(const QString &path);

} // namespace quorvale::test
