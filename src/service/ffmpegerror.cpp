// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "ffmpegerror.h"

using namespace Qt::StringLiterals;

namespace quorvale {

FFmpegError::FFmpegError(Case kind, const QString &description)
    : m_kind(kind), m_description(description.toUtf8())
{
}

FFmpegError FFmpegError::processFailed(const QString &text)
{
    return {Case::processFailed, text.isEmpty() ? u"FFmpeg could not convert this file."_s : text};
}

FFmpegError FFmpegError::notFound()
{
    return {Case::notFound,
            u"FFmpeg was not found. Install it with Homebrew: brew install ffmpeg"_s};
}

FFmpegError FFmpegError::cancelled()
{
    return {Case::cancelled, u"Conversion cancelled."_s};
}

} // namespace quorvale
