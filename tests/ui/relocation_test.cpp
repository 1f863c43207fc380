// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programrun.h"
#include "support/testclass.h"
#include "support/virtualdesktop.h"
#include "support/windowdriver.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QSettings>
#include <QTest>

#include <csignal>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// Whether the installed program works wherever it is, without the tree that it was built in.
class RelocationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(ChildOfTheTest().run(QStringLiteral(CMAKE_PROGRAM),
                                     {u"--install"_s, QStringLiteral(BUILD_TREE), u"--prefix"_s,
                                      m_folder.filePath(u"first"_s)}));
        QVERIFY(QDir(m_folder.path()).rename(u"first"_s, u"second place"_s));
    }

    // The freedesktop.org specifications of desktop entries and of icon themes say what is where.
    void hasAnEntryForTheMenu()
    {
        const QString place = m_folder.filePath(u"second place/"_s);
        QSettings file(place + u"share/applications/org.quorvale.Quorvale.desktop"_s,
                       QSettings::IniFormat);
        QCOMPARE(file.childGroups(), QStringList{u"Desktop Entry"_s});
        file.beginGroup(u"Desktop Entry"_s);
        QCOMPARE(file.value("Type").toString(), u"Application"_s);
        QCOMPARE(file.value("Name").toString(), u"Quorvale"_s);
        QVERIFY(!file.value("GenericName").toString().isEmpty());
        QVERIFY(!file.value("Comment").toString().isEmpty());
        QCOMPARE(file.value("Terminal").toString(), u"false"_s);
        QVERIFY(!file.contains("MimeType")); // it takes no files
        const QFileInfo program(place + u"bin/"_s + file.value("Exec").toString());
        QVERIFY2(program.isFile() && program.isExecutable(), qPrintable(program.filePath()));
        QImageReader icon(place + u"share/icons/hicolor/scalable/apps/"_s
                          + file.value("Icon").toString() + u".svg"_s);
        QVERIFY2(!icon.read().isNull(), qPrintable(icon.errorString()));
    }

    void opensItsWindow_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::newRow("usual renderer") << QString();
        QTest::newRow("software renderer") << u"software"_s;
    }
    void opensItsWindow()
    {
        QFETCH(const QString, backend);
        const auto run = newRun(backend);
        run->showOn(m_desktop);
        QVERIFY(run->start());
        WindowDriver window(m_desktop, *run);
        QVERIFY(window.find());
        QVERIFY(run->hasMapped("/QtQuick/"));
        QVERIFY(!run->hasMapped(BUILD_TREE "/"));
        QVERIFY(window.close());
        QCOMPARE(run->waitForEnd(), std::optional(0));
        QCOMPARE(run->complaints(), QByteArray());
    }

    void runsOffscreen_data() { opensItsWindow_data(); }
    void runsOffscreen()
    {
        QFETCH(const QString, backend);
        const auto run = newRun(backend);
        run->showNowhere();
        QVERIFY(run->start());
        // It stays until it is told to end.
        QTest::qWait(2000);
        QVERIFY2(run->isRunning(), run->standardError().constData());
        QVERIFY(run->hasMapped("/QtQuick/"));
        QCOMPARE(::kill(run->id(), SIGTERM), 0);
        QCOMPARE(run->waitForEnd(), std::optional(-SIGTERM));
        QCOMPARE(run->complaints(), QByteArray());
    }

private:
    std::unique_ptr<ProgramRun> newRun(const QString &backend) const
    {
        auto run = std::make_unique<ProgramRun>(m_folder.filePath(u"second place/bin/quorvale"_s));
        if (!backend.isEmpty())
            run->set(u"QT_QUICK_BACKEND"_s, backend);
        return run;
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
};

QUORVALE_TEST(RelocationTest)
#include "relocation_test.moc"
