// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programrun.h"
#include "support/testclass.h"

#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What the program does where it cannot open a window.
class NoDisplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void adviseOnAVirtualDisplay_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("value");
        QTest::newRow("no display") << QString() << QString();
        QTest::newRow("X11 without a display") << u"QT_QPA_PLATFORM"_s << u"xcb"_s;
        QTest::newRow("Wayland session without a display") << u"XDG_SESSION_TYPE"_s << u"wayland"_s;
        QTest::newRow("Wayland display of no server") << u"WAYLAND_DISPLAY"_s << u"nosuchdisplay"_s;
        QTest::newRow("display of no server") << u"DISPLAY"_s << deadDisplay;
        QTest::newRow("unknown platform") << u"QT_QPA_PLATFORM"_s << u"nosuchplatform"_s;
    }
    void adviseOnAVirtualDisplay()
    {
        QFETCH(const QString, variable);
        QFETCH(const QString, value);
        QVERIFY(!QFileInfo::exists(u"/tmp/.X11-unix/X"_s + deadDisplay.sliced(1)));

        ProgramRun run; // its environment names no display
        if (!variable.isEmpty())
            run.set(variable, value);
        QVERIFY(run.start());
        QCOMPARE(run.waitForEnd(), std::optional(1));
        QVERIFY2(run.standardError().contains("xvfb-run"), run.standardError().constData());
        QVERIFY2(!run.standardError().contains("qt6-wayland"), run.standardError().constData());
    }

    void namesThePackageThatAWaylandSessionNeeds()
    {
        // A copy of the program whose Qt knows nothing but X11
        QTemporaryDir folder;
        const QString copy = folder.filePath(u"quorvale"_s);
        QVERIFY(QFile::copy(QStringLiteral(QUORVALE_PROGRAM), copy));
        QVERIFY(QDir(folder.path()).mkpath(u"plugins/platforms"_s));
        const QString x11 = u"platforms/libqxcb.so"_s;
        QVERIFY(QFile::link(QLibraryInfo::path(QLibraryInfo::PluginsPath) + u'/' + x11,
                            folder.filePath(u"plugins/"_s + x11)));
        QFile paths(folder.filePath(u"qt.conf"_s));
        QVERIFY(paths.open(QIODevice::WriteOnly) && paths.write("[Paths]\nPlugins=plugins\n") > 0);
        paths.close();

        ProgramRun run(copy);
        run.set(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
        QVERIFY(run.start());
        QCOMPARE(run.waitForEnd(), std::optional(1));
        QVERIFY2(run.standardError().contains("qt6-wayland"), run.standardError().constData());
    }

private:
    // A number that servers that look for a free one, from 0 up, never come to.
    const QString deadDisplay = u":59000"_s;
};

QUORVALE_TEST(NoDisplayTest)
#include "nodisplay_test.moc"
