// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "audiomode.h"
#include "encodinggoal.h"
#include "outputcodec.h"

namespace quorvale {

/// The user's choices, applied alike to every file of a batch.
struct ConversionSettings
{
    OutputCodec codec = OutputCodec::h264;
    AudioMode audio = AudioMode::aac;
    EncodingGoal goal = EncodingGoal::balanced;

    /// Whether the hardware (media engine) encoders are asked for.
    bool useHardware = true;

    /// Quality level in percent, meaningful from 30 to 100; not clamped here.
    /// Used only where no target bitrate applies.
    double quality = 76.0;

    /// Whether an existing output file is replaced.
    bool overwrite = false;

    /// Takes the codec that the user picked. AAC gives way to PCM when it is a ProRes codec and
    /// PCM to AAC when it is not; every other choice, copied audio included, stays as it is.
    void chooseCodec(OutputCodec picked);
};

} // namespace quorvale
