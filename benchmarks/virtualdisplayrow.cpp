// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"

#include <QElapsedTimer>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace quorvale::bench {

namespace {

// A display in memory for what is started while this lives.
class Display
{
public:
    Display() : m_platform(qgetenv("QT_QPA_PLATFORM")), m_name(qgetenv("DISPLAY"))
    {
        m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x800x24"_s,
                                   u"-noreset"_s, u"-nolisten"_s, u"tcp"_s});
        while (!m_server.canReadLine()) {
            if (!m_server.waitForReadyRead())
                qFatal("Xvfb does not get ready");
        }
        qputenv("DISPLAY", ':' + m_server.readLine().trimmed());
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
    ~Display()
    {
        qputenv("DISPLAY", m_name);
        qputenv("QT_QPA_PLATFORM", m_platform);
        m_server.terminate();
        m_server.waitForFinished();
    }

    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

private:
    const QByteArray m_platform;
    const QByteArray m_name;
    QProcess m_server;
};

// The seconds until the program that the script builds shows its window.
double timeOfScript(const QString &script)
{
    QElapsedTimer clock;
    clock.start();
    QProcess program;
    program.start(script, {});
    QProcess search;
    do {
        search.start(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quorvale$"_s});
        search.waitForFinished(-1);
    } while (search.exitCode() != 0 && !program.waitForFinished(10));
    const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    if (search.exitCode() != 0)
        qFatal("%s: %s", qPrintable(script), program.readAllStandardError().constData());
    program.terminate();
    program.waitForFinished();
    return seconds;
}

} // namespace

void measureAtVirtualDisplay(const Report &report)
{
    const Display display;
    QList<double> starts;
    QList<double> bytes;
    QList<double> scripts;
    for (int i = 0; i < 9; ++i)
        starts << runTask({u"show-first-frame"_s, u"program"_s}).wall;
    const QString software = u"no graphics processor, OpenGL by software only: "_s;
    report({software + u"start to the first frame"_s, u"–"_s, u"≤ 150 ms"_s,
            u"%1 ms"_s.arg(1000 * median(starts), 0, 'f', 0)});
    for (int i = 0; i < 3; ++i)
        bytes << runTask({u"idle"_s, u"program"_s}).output.toDouble();
    report({software + u"resident memory when idle"_s, u"–"_s, u"≤ 60 MB"_s,
            u"%1 MB"_s.arg(median(bytes) / 1e6, 0, 'f', 0)});
    timeOfScript(QStringLiteral(SCRIPT_THAT_RUNS)); // which may have to build
    for (int i = 0; i < 5; ++i)
        scripts << timeOfScript(QStringLiteral(SCRIPT_THAT_RUNS));
    report({u"<code>scripts/run</code> for the second time, to the window"_s, u"–"_s, u"≤ 2 s"_s,
            u"%1 s"_s.arg(median(scripts), 0, 'f', 2)});
}

} // namespace quorvale::bench
