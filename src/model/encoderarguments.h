// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "encodinggoal.h"
#include "outputcodec.h"

#include <QStringList>

#include <optional>

namespace quorvale {

// The rules that turn the user's choices and the source's bitrate into the video half of the
// ffmpeg command line. Pure functions; they may run on any thread.

/// Whether targetBitrate() and videoArguments() can do with the source's bitrate `source`, in bits
/// per second: whether every number that they make of it fits a 64-bit integer.
bool isEncodable(EncodingGoal goal, std::optional<qint64> source, OutputCodec codec);

/// The bitrate, in bits per second, that `goal` asks of an encoder for `codec` when the source's
/// video has the bitrate `source`. None when quality decides instead: the source's bitrate is
/// unknown, the codec is ProRes, or the goal is constant quality.
///
/// Stops the program when the result does not fit a 64-bit integer, as isEncodable() tells.
std::optional<qint64> targetBitrate(EncodingGoal goal, std::optional<qint64> source,
                                    OutputCodec codec);

/// The name under which ffmpeg knows the encoder for `codec`: the media engine's when `hardware`
/// is true, the software one otherwise.
QString videoEncoder(OutputCodec codec, bool hardware);

/// The encoder selection, codec tag, rate control and pixel format for `codec`, one word of the
/// command line an element (ffmpeg manual, sections "Video Options" and "Video Encoders").
///
/// `targetBitrate` is in bits per second; `quality`, in percent, counts only without it. ProRes
/// ignores both. Stops the program when an argument leaves the 64-bit range.
QStringList videoArguments(OutputCodec codec, bool hardware, double quality,
                           std::optional<qint64> targetBitrate);

} // namespace quorvale
