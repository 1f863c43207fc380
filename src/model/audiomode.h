// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "option.h"

namespace quorvale {

/// What happens to the source's audio.
enum class AudioMode { aac, copy, pcm };

template <>
inline constexpr std::array<LabelledCase<AudioMode>, 3> labelledCases<AudioMode>{{
    {AudioMode::aac, u"AAC (compatible)"},
    {AudioMode::copy, u"Copy source audio"},
    {AudioMode::pcm, u"PCM (ProRes workflow)"},
}};

} // namespace quorvale
