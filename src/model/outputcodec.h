// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "option.h"

namespace quorvale {

/// The video codec of the output files.
enum class OutputCodec { h264, hevc, proRes422, proRes422HQ, proRes4444 };

template <>
inline constexpr std::array<LabelledCase<OutputCodec>, 5> labelledCases<OutputCodec>{{
    {OutputCodec::h264, u"H.264"},
    {OutputCodec::hevc, u"H.265 (HEVC)"},
    {OutputCodec::proRes422, u"ProRes 422"},
    {OutputCodec::proRes422HQ, u"ProRes 422 HQ"},
    {OutputCodec::proRes4444, u"ProRes 4444"},
}};

/// Whether `codec` is one of the ProRes profiles, whose size the profile alone defines.
constexpr bool isProRes(OutputCodec codec)
{
    switch (codec) {
    case OutputCodec::h264:
    case OutputCodec::hevc:
        return false;
    case OutputCodec::proRes422:
    case OutputCodec::proRes422HQ:
    case OutputCodec::proRes4444:
        return true;
    }
    Q_UNREACHABLE();
}

} // namespace quorvale
