// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "option.h"

namespace quorvale {

/// What the encoder aims for when the codec leaves size and quality open.
enum class EncodingGoal { sameSize, balanced, constantQuality };

template <>
inline constexpr std::array<LabelledCase<EncodingGoal>, 3> labelledCases<EncodingGoal>{{
    {EncodingGoal::sameSize, u"Match source size"},
    {EncodingGoal::balanced, u"Balanced"},
    {EncodingGoal::constantQuality, u"Constant quality"},
}};

} // namespace quorvale
