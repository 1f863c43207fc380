// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/videonamefilter.h"
#include "service/ffmpegservice.h"
#include "support/testclass.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace quorvale;
using namespace Qt::StringLiterals;

class VideoNameFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString filter = videoNameFilter();
        QVERIFY(filter.startsWith(u"Videos ("_s) && filter.endsWith(u')'));
        m_patterns = filter.sliced(8).chopped(1).split(u' ');
    }

    void hasOnePatternForEachAcceptedExtension()
    {
        QCOMPARE(m_patterns.size(), FFmpegService::supportedExtensions().size());
        for (const QString &extension : FFmpegService::supportedExtensions())
            QVERIFY2(matches(u"clip."_s + extension), qPrintable(extension));
    }

    void takesUpperAndLowerCaseAlike()
    {
        for (const QString &extension : FFmpegService::supportedExtensions())
            QVERIFY2(matches(u"clip."_s + extension.toUpper()), qPrintable(extension));
        QVERIFY(matches(u"Clip.Mp4"_s));
        QVERIFY(matches(u"Clip.m2TS"_s));
    }

    void takesNothingElse()
    {
        for (const auto &name : {u"clip.txt"_s, u"clip.mp3"_s, u"clip.mp44"_s, u"mp4"_s,
                                 u"clip.mp4.part"_s, u"clip.wmv"_s, u"clip.[mM]"_s})
            QVERIFY2(!matches(name), qPrintable(name));
    }

private:
    // As the strictest dialog would match.
    bool matches(const QString &name) const
    {
        return std::ranges::any_of(m_patterns, [&](const QString &pattern) {
            return QRegularExpression(QRegularExpression::wildcardToRegularExpression(pattern))
                .match(name)
                .hasMatch();
        });
    }

    QStringList m_patterns;
};

QUORVALE_TEST(VideoNameFilterTest)
#include "videonamefilter_test.moc"
