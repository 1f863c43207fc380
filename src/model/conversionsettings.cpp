// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "conversionsettings.h"

namespace quorvale {

void ConversionSettings::chooseCodec(OutputCodec picked)
{
    codec = picked;
    if (isProRes(picked) && audio == AudioMode::aac)
        audio = AudioMode::pcm;
    if (!isProRes(picked) && audio == AudioMode::pcm)
        audio = AudioMode::aac;
}

} // namespace quorvale
