// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/conversion.h"
#include "support/scarcity.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QTest>

#include <optional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What becomes of a conversion when the system has no more to give, and of the next one when it
// has.
class ScarcityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tools.emplace();
        m_tools->setScript(u"ffmpeg"_s, Script().out("progress=end\n"));
        m_service = std::make_unique<FFmpegService>();
    }

    void withoutAThreadAConversionFails_data()
    {
        QTest::addColumn<int>("threads");
        QTest::newRow("none") << 0;
        QTest::newRow("one, and none that may wait for a disk") << 1;
    }
    void withoutAThreadAConversionFails()
    {
        QFETCH(const int, threads);
        {
            const FewThreads limit(threads);
            for (int i = 0; i < 2; ++i) {
                QCOMPARE(endOfConversion().message, u"The conversion could not be started: "
                                                    "Resource temporarily unavailable"_s);
            }
            QVERIFY(limit.refusals() > 0);
        }
        verifyConversion();
    }

    void withFewDescriptorsAConversionSaysSoOrWorks_data()
    {
        QTest::addColumn<int>("descriptors");
        QTest::addColumn<bool>("isFirst");
        for (int count = 0; count <= 20; ++count) {
            QTest::addRow("%d, for the first", count) << count << true;
            QTest::addRow("%d, for a later one", count) << count << false;
        }
    }
    void withFewDescriptorsAConversionSaysSoOrWorks()
    {
        QFETCH(const int, descriptors);
        QFETCH(const bool, isFirst);
        if (!isFirst)
            verifyConversion();
        m_tools->forgetRuns();
        ConversionEnd end;
        {
            const FewDescriptors limit(descriptors);
            end = endOfConversion();
        }
        if (end.isSuccess()) {
            // With the answer of the first tool that was asked.
            QCOMPARE(m_tools->runs(u"ffprobe"_s).size(), 1);
            QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 1);
        } else {
            QCOMPARE(end.message, u"The conversion could not be started: Too many open files"_s);
        }
        QVERIFY(end.isSuccess() || descriptors < 20);
        verifyConversion();
    }

private:
    QFuture<ConvertedFile> convert()
    {
        return m_service->convert(QUrl::fromLocalFile(u"/in/clip.mkv"_s),
                                  QUrl::fromLocalFile(m_tools->path(u"out/clip_converted.mp4"_s)),
                                  {}, [](double) {});
    }

    ConversionEnd endOfConversion() { return endOf(convert()); }

    void verifyConversion()
    {
        const ConversionEnd end = endOfConversion();
        QVERIFY2(end.isSuccess(), qPrintable(end.message));
    }

    std::optional<StandInTools> m_tools;
    std::unique_ptr<FFmpegService> m_service;
};

QUORVALE_TEST(ScarcityTest)
#include "scarcity_test.moc"
