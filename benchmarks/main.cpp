// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "rows.h"
#include "tasks.h"

#include "ui/graphics.h"

#include <QApplication>
#include <QFile>
#include <QQuickWindow>
#include <QTextStream>
#include <QThread>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace quorvale::bench;
using quorvale::chooseRenderer;

namespace {

int perform(const QStringList &arguments)
{
    const QString task = arguments.value(0);
    const QString first = arguments.value(1);
    const QString second = arguments.value(2);
    if (task == "convert-folder"_L1)
        return convertFolder(first, second, arguments.value(3));
    if (task == "search-folders"_L1)
        return searchFolders(arguments.sliced(1));
    if (task == "search-with-window"_L1)
        return searchWithWindow(first);
    if (task == "drop-files"_L1)
        return dropFiles(first.toInt());
    if (task == "scroll-list"_L1)
        return scrollList(first.toInt());
    if (task == "show-first-frame"_L1)
        return showFirstFrame(first == "bare"_L1);
    if (task == "idle"_L1)
        return idle(first == "bare"_L1);
    if (task == "convert-with-window"_L1)
        return convertWithWindow(first, second);
    if (task == "read-progress"_L1)
        return readProgress(first);
    qCritical("There is no task %s", qPrintable(task));
    return EXIT_FAILURE;
}

QString processorName()
{
    QFile file(u"/proc/cpuinfo"_s);
    if (!file.open(QIODevice::ReadOnly))
        return u"unknown processor"_s;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.sliced(line.indexOf(':') + 1).trimmed());
    }
    return QSysInfo::currentCpuArchitecture();
}

struct Measurement
{
    QLatin1String name;
    void (*measure)(const Report &report);
};

const Measurement measurements[] = {{"batch"_L1, measureBatch},
                                    {"adding"_L1, measureAdding},
                                    {"largetree"_L1, measureLargeTree},
                                    {"drops"_L1, measureDrops},
                                    {"longlist"_L1, measureLongList},
                                    {"start"_L1, measureStart},
                                    {"display"_L1, measureAtVirtualDisplay},
                                    {"encoding"_L1, measureEncoding},
                                    {"progress"_L1, measureProgressStream}};

bool isMeasurement(const QString &name)
{
    return std::ranges::any_of(measurements,
                               [&](const Measurement &each) { return each.name == name; });
}

} // namespace

// Measures what the arguments name, or everything, and prints a table; or does one of the tasks
// that are measured.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (QApplication::platformName() == "offscreen"_L1) // with the renderer that every machine has
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    else
        chooseRenderer();
    const QStringList arguments = QApplication::arguments().sliced(1);
    if (!std::ranges::all_of(arguments, isMeasurement))
        return perform(arguments);

    QTextStream out(stdout);
    out << "Measured on " << QThread::idealThreadCount() << " of the processors of a machine with "
        << processorName() << ", " << QSysInfo::prettyProductName() << ", Qt " << qVersion()
        << ".\n\n| What | Against | Aim | Measured |\n|---|---|---|---|" << Qt::endl;
    const auto report = [&](const Row &row) {
        out << "| " << row.what << " | " << row.against << " | " << row.aim << " | " << row.figure
            << " |" << Qt::endl;
    };
    for (const Measurement &each : measurements) {
        if (arguments.isEmpty() || arguments.contains(each.name))
            each.measure(report);
    }
    return EXIT_SUCCESS;
}
