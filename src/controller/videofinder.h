// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/sourcefile.h"

#include <QList>
#include <QUrl>

namespace quorvale {

/// The accepted videos among `urls`, in order: a folder stands for the accepted entries of its
/// whole tree, in the order of VideoTree, anything else for itself, as localFile() gives it. URLs
/// that are not of local files are left out. See contentOf() for what is accepted. Reads the file
/// system; blocks until the trees are read.
QList<SourceFile> findVideos(const QList<QUrl> &urls);

} // namespace quorvale
