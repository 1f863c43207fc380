// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/accessibleevents.h"
#include "support/patience.h"
#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;

// What is said of a batch to a user who does not see the window, by itself.
class AnnouncementsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &name : m_names)
            QVERIFY(makeVideo(clip(name), 60));
        QFile broken(clip(u"b.mp4"_s));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no video") > 0);
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
    }

    void cleanup() { m_bench.reset(); }

    void aBatchIsToldInSentencesAndInNothingThatNobodyNeeds()
    {
        QVERIFY(m_bench->drop({m_folder.path()}));
        QVERIFY(window().waitForRows(m_names));
        const AccessibleEvents events(m_desktop.accessibility());
        QVERIFY(window().convert(6));
        for (const QString &name : m_names)
            QVERIFY(window().waitForDescription(name, name == u"b.mp4"_s ? u", Failed, "_s
                                                                         : u", Complete"_s));
        QTRY_COMPARE_WITH_TIMEOUT(events.announcements().size(), 3, patience);
        QCOMPARE(events.announcements()[0], u"Converting 6 videos."_s);
        QVERIFY(events.announcements()[1].startsWith(u"b.mp4 failed: "_s));
        QVERIFY(events.announcements()[1].contains(u"Invalid data found when processing input"_s));
        QCOMPARE(events.announcements()[2], u"Finished: 5 complete, 1 failed."_s);

        // A row's state, but not its progress, which is read when it is asked for.
        const auto described = u"accessible-description 0"_s;
        QCOMPARE(events.count(described, Role::listItem), 12);
        QCOMPARE(events.count(described, Role::progressBar), 0);
        QCOMPARE(events.count(u"accessible-value 0"_s, Role::progressBar), 0);
        // The button that comes back.
        QCOMPARE(events.count(u"accessible-name 0"_s, Role::button), 1);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

private:
    QString clip(const QString &name) const { return m_folder.filePath(name); }
    const WindowDriver &window() const { return m_bench->window(); }

    const QStringList m_names{u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s,
                              u"d.mp4"_s, u"e.mp4"_s, u"f.mp4"_s};
    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(AnnouncementsTest)
#include "announcements_test.moc"
