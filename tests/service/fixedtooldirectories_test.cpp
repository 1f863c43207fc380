// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/tooldirectories.h"
#include "support/testclass.h"

#include <QTest>

using namespace Qt::StringLiterals;

class FixedToolDirectoriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areTheFixedOnesInOrderOfPreference()
    {
        const QStringList fixed{u"/opt/homebrew/bin/"_s, u"/usr/local/bin/"_s, u"/usr/bin/"_s};
        QCOMPARE(quorvale::toolDirectories(), fixed);
    }

    void noEnvironmentVariableChangesThem()
    {
        const QStringList before = quorvale::toolDirectories();
        qputenv("PATH", "/somewhere/else");
        qputenv("FFMPEG", "/somewhere/else/ffmpeg");
        QCOMPARE(quorvale::toolDirectories(), before);
    }
};

QUORVALE_TEST(FixedToolDirectoriesTest)
#include "fixedtooldirectories_test.moc"
