// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "jobstate.h"

namespace quorvale {

bool operator==(const JobState &a, const JobState &b)
{
    if (a.m_kind != b.m_kind)
        return false;
    if (a.m_message == b.m_message)
        return true;
    constexpr auto form = QString::NormalizationForm_D;
    return a.m_message.normalized(form) == b.m_message.normalized(form);
}

} // namespace quorvale
