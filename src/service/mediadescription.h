// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "patience.h"

#include <QByteArray>

namespace quorvale {

// What the tools say about a source. Both calls start a process and block until it has ended, so
// they are not for the main thread. A tool that cannot be started says nothing; its exit status
// plays no part. Only the first 16 MiB count, so that a runaway tool cannot fill the memory. When
// `patience` ends first, both throw FFmpegError::cancelled; see ChildProcess::run().

/// The JSON description of the file at `path` by the `ffprobe` at that path.
QByteArray describeWithFFprobe(const QByteArray &ffprobe, const QByteArray &path,
                               const Patience &patience = {});

/// The banner about the file at `path` that the `ffmpeg` at that path prints before it complains
/// that it was given no output.
QByteArray describeWithFFmpeg(const QByteArray &ffmpeg, const QByteArray &path,
                              const Patience &patience = {});

} // namespace quorvale
