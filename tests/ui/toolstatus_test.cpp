// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/testclass.h"
#include "toolstatus.h"

#include "support/filetree.h"
#include "support/standintools.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

// milliseconds
constexpr int aboutASecond = 1200;
constexpr int onABusyMachine = 5000;

} // namespace

class ToolStatusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_tools = std::make_unique<StandInTools>(); }
    void cleanup() { m_tools.reset(); }

    void knowsAtOnce()
    {
        QVERIFY(ToolStatus().isFound());
        m_tools->removeTool(u"ffmpeg"_s);
        QVERIFY(!ToolStatus().isFound());
    }

    void onlyFfmpegMatters()
    {
        m_tools->removeTool(u"ffprobe"_s);
        QVERIFY(ToolStatus().isFound());
    }

    void isIdleAtFirst()
    {
        ToolStatus status;
        QVERIFY(!status.isActive());
        QSignalSpy activity(&status, &ToolStatus::isActiveChanged);
        status.setActive(false);
        QCOMPARE(activity.size(), 0);
        status.setActive(true);
        status.setActive(true);
        QCOMPARE(activity.size(), 1);
        QVERIFY(status.isActive());
        status.setActive(false);
        QCOMPARE(activity.size(), 2);
    }

    void followsTheToolWithinAboutASecond()
    {
        ToolStatus status;
        status.setActive(true);
        QSignalSpy changes(&status, &ToolStatus::isFoundChanged);
        m_tools->removeTool(u"ffmpeg"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!status.isFound(), onABusyMachine);
        putBack();
        QTRY_VERIFY_WITH_TIMEOUT(status.isFound(), onABusyMachine);
        QCOMPARE(changes.size(), 2);
        QTest::qWait(aboutASecond);
        QCOMPARE(changes.size(), 2);
    }

    // A change in a folder that is not searched itself.
    void followsASymbolicLink()
    {
        const FileTree elsewhere;
        const QString target = elsewhere.path(u"ffmpeg"_s);
        m_tools->removeTool(u"ffmpeg"_s);
        QVERIFY(QFile::link(target, m_tools->path(u"ffmpeg"_s)));
        ToolStatus status;
        status.setActive(true);
        QVERIFY(!status.isFound());
        elsewhere.addFile(u"ffmpeg"_s);
        QVERIFY(QFile::setPermissions(target, QFile::ReadOwner | QFile::ExeOwner));
        QTRY_VERIFY_WITH_TIMEOUT(status.isFound(), onABusyMachine);
        QVERIFY(QFile::remove(target));
        QTRY_VERIFY_WITH_TIMEOUT(!status.isFound(), onABusyMachine);
    }

    void doesNotLookWhileIdle()
    {
        ToolStatus status;
        status.setActive(true);
        status.setActive(false);
        m_tools->removeTool(u"ffmpeg"_s);
        QTest::qWait(aboutASecond);
        QVERIFY(status.isFound());
        status.setActive(true); // looks at once
        QVERIFY(!status.isFound());
    }

private:
    void putBack() { m_tools->replaceTool(u"ffmpeg"_s, "#!/bin/sh\n"); }

    std::unique_ptr<StandInTools> m_tools;
};

QUORVALE_TEST(ToolStatusTest)
#include "toolstatus_test.moc"
