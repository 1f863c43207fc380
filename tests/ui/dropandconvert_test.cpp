// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QDir>
#include <QTest>

#include <cmath>
#include <filesystem>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// Converts real clips with the program as a user does, by mouse and keyboard.
class DropAndConvertTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QDir(m_folder.path()).mkdir(u"clips"_s));
        for (const QString &name : names)
            QVERIFY(makeVideo(clip(name), seconds(name)));
    }

    void convertsWhatIsDropped_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::newRow("usual renderer") << QString();
        QTest::newRow("software renderer") << u"software"_s;
    }
    void convertsWhatIsDropped()
    {
        QFETCH(const QString, backend);
        ProgramBench bench(m_desktop);
        if (!backend.isEmpty())
            bench.run().set(u"QT_QUICK_BACKEND"_s, backend);
        QVERIFY(bench.start());

        QVERIFY(bench.drop({clips()}));
        QVERIFY(bench.window().waitForRows(names));
        QVERIFY(bench.window().chooseOutputFolder(bench.outputFolder()));
        QVERIFY(bench.window().convert(3));
        QVERIFY(bench.waitForOutputs(
            {u"50% #1? é_converted.mp4"_s, u"a_converted.mp4"_s, u"b_converted.mp4"_s}));
        for (const QString &name : names) {
            const QString output = bench.output(stem(name) + u"_converted.mp4"_s);
            const double duration = videoDuration(output).value_or(0);
            QVERIFY2(std::abs(duration - seconds(name)) <= 0.1,
                     qPrintable(u"%1: %2 s"_s.arg(name).arg(duration)));
        }
    }

    // As file managers give it, and with a host, as some do.
    void convertsAFileWhoseNameIsNoText()
    {
        namespace fs = std::filesystem;
        const fs::path source = m_folder.filePath(u"caf"_s).toStdString() + "\xe9.mp4";
        fs::copy_file(clip(names.first()).toStdString(), source);
        ProgramBench bench(m_desktop);
        QVERIFY(bench.start());
        QVERIFY(bench.window().chooseOutputFolder(bench.outputFolder()));
        const QByteArray path = QByteArray::fromStdString(source).toPercentEncoding("/");
        QVERIFY(bench.drop({QString::fromLatin1("file://localhost" + path)}));
        const QString row = u"caf\uFFFD.mp4"_s;
        QVERIFY(bench.window().waitForRows({row}));
        QVERIFY(bench.window().convert(1));
        QVERIFY(bench.window().waitForDescription(row, u", Complete"_s));
        QVERIFY(fs::exists(bench.outputFolder().toStdString() + "/caf\xe9_converted.mp4"));
    }

private:
    const QStringList names{u"50% #1? é.mp4"_s, u"a.mkv"_s, u"b.mov"_s};

    QString clips() const { return m_folder.filePath(u"clips"_s); }
    QString clip(const QString &name) const { return clips() + u'/' + name; }
    static QString stem(const QString &name) { return name.first(name.lastIndexOf(u'.')); }
    // Each differs in its length from the others.
    int seconds(const QString &name) const { return 1 + static_cast<int>(names.indexOf(name)); }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
};

QUORVALE_TEST(DropAndConvertTest)
#include "dropandconvert_test.moc"
