// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videonamefilter.h"

#include "service/ffmpegservice.h"

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QString pattern(const QString &extension)
{
#ifdef Q_OS_MACOS
    return u"*."_s + extension; // the system's dialog takes extensions only, in either case
#else
    QString pattern = u"*."_s;
    for (const QChar letter : extension) {
        if (letter.isLetter())
            pattern += u'[' + letter.toLower() + letter.toUpper() + u']';
        else
            pattern += letter;
    }
    return pattern;
#endif
}

} // namespace

QStringList videoNamePatterns()
{
    QStringList patterns;
    for (const QString &extension : FFmpegService::supportedExtensions())
        patterns << pattern(extension);
    patterns.sort();
    return patterns;
}

QString videoNameFilter()
{
    return u"Videos (%1)"_s.arg(videoNamePatterns().join(u' '));
}

} // namespace quorvale
