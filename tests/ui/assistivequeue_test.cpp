// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QFile>
#include <QTest>
#include <QUrl>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;

// The queue as a screen reader, a switch or a voice control works it: by the actions of what is in
// the window, without the mouse and the keyboard. What counts is what comes of it.
class AssistiveQueueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(makeVideo(m_folder.filePath(name), 3600));
        for (int number = 10; number < 50; ++number)
            QVERIFY(
                QFile(m_manyFolder.filePath(u"%1.mp4"_s.arg(number))).open(QIODevice::WriteOnly));
        QFile fileManager(m_programs.filePath(u"xdg-open"_s));
        QVERIFY(fileManager.open(QIODevice::WriteOnly));
        fileManager.write("#!/bin/sh\necho \"$1\" >\"$0.shown\"\n");
        QVERIFY(fileManager.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        m_bench->run().set(u"PATH"_s, m_programs.path() + u':' + qEnvironmentVariable("PATH"));
        QVERIFY(m_bench->start());
    }

    void cleanup()
    {
        // Of the window's code, which goes on after a mistake.
        const QByteArray complaints = m_bench->run().complaints();
        m_bench.reset();
        QCOMPARE(complaints, QByteArray());
    }

    void theButtonsOfARowWork()
    {
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(m_bench->drop({m_folder.path()}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
        QVERIFY(window().actInRow(u"c.mp4"_s, u"Move up"_s));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"c.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().actInRow(u"a.mp4"_s, u"Move down"_s));
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().actInRow(u"a.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().act(press, Role::button, u"Convert 2 Videos"_s));
        QVERIFY(window().waitForDescription(u"c.mp4"_s, u", Converting"_s));
        QVERIFY(window().actInRow(u"b.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitForRows({u"c.mp4"_s}));
    }

    void theLastRowGoesWithItsButton()
    {
        QVERIFY(m_bench->queue({video(u"a.mp4"_s)}));
        QVERIFY(window().actInRow(u"a.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Choose Videos"_s)));
    }

    void whatIsCompleteIsQueuedAgainOrCleared()
    {
        QTemporaryDir folder;
        const QString clip = folder.filePath(u"short.mp4"_s);
        QVERIFY(makeVideo(clip, 1));
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(m_bench->queue({clip}));
        QVERIFY(window().act(press, Role::button, u"Convert 1 Video"_s));
        QVERIFY(m_bench->waitForOutputs({u"short_converted.mp4"_s}));
        QVERIFY(window().waitForDescription(u"short.mp4"_s, u"Complete"_s));
        QVERIFY(window().actInRow(u"short.mp4"_s, u"Queue this video again"_s));
        QVERIFY(window().waitForDescription(u"short.mp4"_s, u"Ready"_s));
        QVERIFY(window().act(press, Role::button, u"Convert 1 Video"_s));
        QVERIFY(m_bench->waitForOutputs({u"short_converted.mp4"_s, u"short_converted_2.mp4"_s}));
        QVERIFY(window().act(press, Role::button, u"Clear Completed"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Choose Videos"_s)));
    }

    void theOutputFolderIsShown()
    {
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().act(press, Role::button, u"Show output folder"_s));
        QFile shown(m_programs.filePath(u"xdg-open.shown"_s));
        QByteArray folder;
        QVERIFY(QTest::qWaitFor(
            [&] {
                if (shown.open(QIODevice::ReadOnly))
                    folder = shown.readAll();
                shown.close();
                return folder.endsWith('\n');
            },
            patience));
        const QString parent = QFileInfo(m_bench->outputFolder()).path();
        QCOMPARE(folder.trimmed(), QUrl::fromLocalFile(parent).toEncoded());
    }

    void theRowsAreReadInTheirOrder()
    {
        QVERIFY(m_bench->drop({m_manyFolder.path()}));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::listItem, u"10.mp4"_s)));
        verifyReadingOrder({u"10.mp4"_s, u"11.mp4"_s, u"12.mp4"_s});
        QVERIFY(window().actInRow(u"12.mp4"_s, u"Move up"_s));
        verifyReadingOrder({u"10.mp4"_s, u"12.mp4"_s, u"11.mp4"_s});
        QVERIFY(window().actInRow(u"10.mp4"_s, u"Move down"_s));
        verifyReadingOrder({u"12.mp4"_s, u"10.mp4"_s, u"11.mp4"_s});
        QVERIFY(window().dragRow(u"14.mp4"_s, u"12.mp4"_s));
        QVERIFY(window().releaseRow());
        verifyReadingOrder({u"14.mp4"_s, u"12.mp4"_s, u"10.mp4"_s, u"11.mp4"_s, u"13.mp4"_s});
        QVERIFY(window().actInRow(u"10.mp4"_s, u"Remove from queue"_s));
        verifyReadingOrder({u"14.mp4"_s, u"12.mp4"_s, u"11.mp4"_s, u"13.mp4"_s, u"15.mp4"_s});

        QVERIFY(window().activate());
        QVERIFY(window().tabTo(
            [](const AccessibleItem &item) { return item.role() == Role::listItem; }));
        const QList<std::pair<QString, QString>> ways{
            {u"End"_s, u"49.mp4"_s}, {u"Prior"_s, u"42.mp4"_s}, {u"Home"_s, u"14.mp4"_s}};
        for (const auto &[key, row] : ways) {
            QVERIFY(window().press(key));
            QVERIFY(window().waitFor(AccessibleItem::named(Role::listItem, row)));
            verifyReadingOrder({});
        }
    }

    void aLongListScrolls()
    {
        QVERIFY(m_bench->drop({m_manyFolder.path()}));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::listItem, u"10.mp4"_s)));
        const auto bar = AccessibleItem::named(Role::scrollBar, u"Scroll bar"_s);
        const auto last = AccessibleItem::named(Role::listItem, u"49.mp4"_s);
        for (int times = 0; times < 10; ++times)
            QVERIFY(window().act(u"Increase"_s, bar));
        QVERIFY(window().waitFor(last));
        verifyReadingOrder({});
        for (int times = 0; times < 10; ++times)
            QVERIFY(window().act(u"Decrease"_s, bar));
        QVERIFY(window().waitForNo(last));
        verifyReadingOrder({u"10.mp4"_s, u"11.mp4"_s});
    }

private:
    const QString press = u"Press"_s;

    const WindowDriver &window() const { return m_bench->window(); }
    QString video(const QString &name) const { return m_folder.filePath(name); }

    // The rows are read as they stand, and begin with these.
    void verifyReadingOrder(const QStringList &first)
    {
        QStringList read;
        QStringList shown;
        const bool isSo = QTest::qWaitFor(
            [&] {
                read = window().rowNamesInReadingOrder();
                shown = window().rowNames();
                return read == shown && read.size() > 4 && read.first(first.size()) == first;
            },
            patience);
        QVERIFY2(isSo, qPrintable(read.join(u' ') + u" instead of "_s + shown.join(u' ')));
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    QTemporaryDir m_manyFolder;
    QTemporaryDir m_programs;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(AssistiveQueueTest)
#include "assistivequeue_test.moc"
