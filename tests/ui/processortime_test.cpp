// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QTest>

#include <unistd.h>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// That the program leaves the processor to others, above all to ffmpeg. No benchmark: a window that
// is drawn all the time, or a loop that waits by asking, goes far beyond the bounds.
class ProcessorTimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(makeVideo(video(), 1800)); }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        // Where there is no graphics card, its driver's work would count as the program's own.
        m_bench->run().set(u"QT_QUICK_BACKEND"_s, u"software"_s);
        QVERIFY(m_bench->start());
        QVERIFY(m_bench->queue({video()}));
        QVERIFY(m_bench->window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(m_desktop.display().parkMouse());
    }

    void cleanup() { m_bench.reset(); }

    void anUnchangedWindowTakesNextToNothing()
    {
        QVERIFY(!m_bench->window().restingPicture().isEmpty());
        const double share = shareOfProcessor();
        QVERIFY2(share >= 0 && share < 0.05, qPrintable(QString::number(share)));
    }

    void aConversionTakesLittleBesideItsTool()
    {
        QVERIFY(m_bench->window().convert(1));
        QVERIFY(m_bench->window().waitForProgress(u"long.mp4"_s));
        const double share = shareOfProcessor();
        QVERIFY(m_bench->window().description(u"long.mp4"_s).contains(u", Converting"_s));
        QVERIFY2(share >= 0 && share < 0.25, qPrintable(QString::number(share)));
    }

private:
    QString video() const { return m_folder.filePath(u"long.mp4"_s); }

    // How much the program itself has taken, in seconds; none when it is gone.
    std::optional<double> processorTime() const
    {
        QFile file(u"/proc/%1/stat"_s.arg(m_bench->run().id()));
        if (!file.open(QIODevice::ReadOnly))
            return std::nullopt;
        // Behind the name in parentheses, which may hold anything, see proc(5).
        const QByteArray line = file.readAll();
        const QList<QByteArray> fields = line.sliced(line.lastIndexOf(')') + 2).split(' ');
        const double ticks = fields.value(11).toDouble() + fields.value(12).toDouble();
        return ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
    }

    // Of one processor, over a while; negative when it cannot be found out.
    double shareOfProcessor() const
    {
        constexpr int milliseconds = 3000;
        const auto before = processorTime();
        QTest::qWait(milliseconds);
        const auto after = processorTime();
        return before && after ? (*after - *before) / (milliseconds / 1000.0) : -1;
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(ProcessorTimeTest)
#include "processortime_test.moc"
