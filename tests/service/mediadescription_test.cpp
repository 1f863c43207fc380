// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/mediadescription.h"

#include "service/mediainfo.h"
#include "support/standintools.h"

#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class MediaDescriptionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isWhatTheToolSaysOnItsStreamWhateverItsStatus()
    {
        const Script script = Script().out("on output").err("on error").exit(3);
        m_tools.setScript(u"ffprobe"_s, script);
        m_tools.setScript(u"ffmpeg"_s, script);
        QCOMPARE(describeWithFFprobe(m_tools.path(u"ffprobe"_s), u"/in/a.mkv"_s), "on output");
        QCOMPARE(describeWithFFmpeg(m_tools.path(u"ffmpeg"_s), u"/in/a.mkv"_s), "on error");
    }

    void isEmptyWhenNeitherToolCanBeStartedAndTellsNothing()
    {
        const QString noTool = m_tools.path(u"none"_s);
        const QByteArray json = describeWithFFprobe(noTool, u"/in/a.mkv"_s);
        QCOMPARE(json, QByteArray());
        QVERIFY(!mediaInfoFromJson(json));
        const QByteArray banner = describeWithFFmpeg(noTool, u"/in/a.mkv"_s);
        QCOMPARE(banner, QByteArray());
        const MediaInfo info = mediaInfoFromBanner(banner);
        QCOMPARE(info.duration, 0.0);
        QVERIFY(!info.videoBitrate);
    }

private:
    StandInTools m_tools;
};

QTEST_GUILESS_MAIN(MediaDescriptionTest)
#include "mediadescription_test.moc"
