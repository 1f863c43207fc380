// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/mediadescription.h"

#include "service/mediainfo.h"
#include "support/standintools.h"
#include "support/testclass.h"

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
        QCOMPARE(describeWithFFprobe(pathOf(u"ffprobe"_s), "/in/a.mkv"), "on output");
        QCOMPARE(describeWithFFmpeg(pathOf(u"ffmpeg"_s), "/in/a.mkv"), "on error");
    }

    void theOtherStreamIsNotKept()
    {
        m_tools.replaceTool(u"ffprobe"_s, "#!/bin/sh\nreadlink /proc/$$/fd/2\n");
        m_tools.replaceTool(u"ffmpeg"_s,
                            "#!/bin/sh\nout=$(readlink /proc/$$/fd/1); echo $out >&2\n");
        QCOMPARE(describeWithFFprobe(pathOf(u"ffprobe"_s), "/in/a.mkv"), "/dev/null\n");
        QCOMPARE(describeWithFFmpeg(pathOf(u"ffmpeg"_s), "/in/a.mkv"), "/dev/null\n");
    }

    void isEmptyWhenNeitherToolCanBeStartedAndTellsNothing()
    {
        const QByteArray noTool = pathOf(u"none"_s);
        const QByteArray json = describeWithFFprobe(noTool, "/in/a.mkv");
        QCOMPARE(json, QByteArray());
        QVERIFY(!mediaInfoFromJson(json));
        const QByteArray banner = describeWithFFmpeg(noTool, "/in/a.mkv");
        QCOMPARE(banner, QByteArray());
        const MediaInfo info = mediaInfoFromBanner(banner);
        QCOMPARE(info.duration, 0.0);
        QVERIFY(!info.videoBitrate);
    }

private:
    QByteArray pathOf(const QString &tool) const { return m_tools.path(tool).toUtf8(); }

    StandInTools m_tools;
};

QUORVALE_TEST(MediaDescriptionTest)
#include "mediadescription_test.moc"
