// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "conversion.h"

#include "patience.h"

#include <QDeadlineTimer>
#include <QThread>

namespace quorvale::test {

FFmpegService::ProgressHandler ProgressLog::handler()
{
    return [this](double fraction) {
        const std::scoped_lock guard(m_mutex);
        m_values << fraction;
    };
}

QList<double> ProgressLog::values() const
{
    const std::scoped_lock guard(m_mutex);
    return m_values;
}

ConversionEnd endOf(QFuture<ConvertedFile> conversion)
{
    QDeadlineTimer deadline(patience);
    while (!conversion.isFinished() && !deadline.hasExpired())
        QThread::msleep(1);
    if (!conversion.isFinished())
        qWarning("Awaiting the end of a conversion, of which there is none so far");
    try {
        conversion.waitForFinished();
    } catch (const FFmpegError &error) {
        return {error.kind(), error.errorDescription(), {}};
    } catch (const std::exception &error) {
        return {std::nullopt, QString::fromUtf8(error.what()), {}};
    }
    return {.ffmpegError = {}, .message = {}, .earlyEnd = conversion.result().earlyEnd};
}

} // namespace quorvale::test
