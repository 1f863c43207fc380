// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "service/ffmpegerror.h"
#include "service/ffmpegservice.h"

#include <QList>
#include <QString>

#include <mutex>
#include <optional>

namespace quorvale::test {

/// How one conversion ended.
struct ConversionEnd
{
    std::optional<FFmpegError::Case> ffmpegError; ///< none for success and for other errors
    QString message;                              ///< empty for success
    std::optional<EarlyEnd> earlyEnd;             ///< of the source of a success

    bool isSuccess() const { return message.isEmpty(); }
};

/// The progress values of one conversion, collected from its worker thread.
class ProgressLog
{
public:
    FFmpegService::ProgressHandler handler();
    QList<double> values() const;

private:
    mutable std::mutex m_mutex;
    QList<double> m_values;
};

/// Waits for the conversion's end. Needs no event loop.
ConversionEnd endOf(QFuture<ConvertedFile> conversion);

} // namespace quorvale::test
