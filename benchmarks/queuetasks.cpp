// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "tasks.h"

#include "controller/converterviewmodel.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/testtooldirectories.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <cstdio>
#include <cstdlib>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace quorvale::bench {

namespace {

std::shared_ptr<ConverterViewModel> makeModel(const QString &outputs = {})
{
    auto panel = std::make_unique<test::RecordedPanel>();
    if (!outputs.isEmpty())
        panel->answers << QList{QUrl::fromLocalFile(outputs)};
    auto model =
        ConverterViewModel::create(std::move(panel), std::make_unique<test::RecordedFileManager>());
    if (!outputs.isEmpty())
        model->chooseDestination();
    return model;
}

bool runBatch(ConverterViewModel &model)
{
    QEventLoop loop;
    QObject::connect(&model, &ConverterViewModel::isConvertingChanged, &loop, [&] {
        if (!model.isConverting())
            loop.quit();
    });
    model.start();
    if (model.isConverting())
        loop.exec();
    return model.jobCount() > 0 && model.completedCount() == model.jobCount();
}

double processorTime(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

int convertFolder(const QString &sources, const QString &outputs, const QString &toolFolder)
{
    test::setToolDirectories({toolFolder});
    const auto model = makeModel(outputs);
    model->setProperty("useHardware", false);
    model->add({QUrl::fromLocalFile(sources)});
    if (!runBatch(*model))
        return EXIT_FAILURE;
    std::printf("%f\n%f\n", processorTime(RUSAGE_SELF), processorTime(RUSAGE_CHILDREN));
    return EXIT_SUCCESS;
}

int searchFolders(const QStringList &folders)
{
    const auto model = makeModel();
    qsizetype found = 0;
    QObject::connect(model->searches(), &SearchQueue::found, [&] { ++found; });
    for (const QString &folder : folders)
        model->handleDrop({QUrl::fromLocalFile(folder)});
    while (found < folders.size())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::fflush(stdout);
    // Without the time that it takes to free every job: the program is there to keep them.
    std::_Exit(model->jobCount() > 0 ? EXIT_SUCCESS : EXIT_FAILURE);
}

int dropFiles(int count)
{
    const auto model = makeModel();
    QList<QUrl> urls;
    for (int i = 0; i < count; ++i)
        urls << QUrl::fromLocalFile(u"/videos/clip %1.mp4"_s.arg(i));
    QElapsedTimer clock;
    clock.start();
    model->handleDrop(urls);
    while (model->jobCount() < count)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("%f\n", static_cast<double>(clock.nsecsElapsed()) / 1e9);
    return EXIT_SUCCESS;
}

int readProgress(const QString &toolFolder)
{
    test::setToolDirectories({toolFolder});
    const auto model = makeModel(toolFolder + u"outputs"_s);
    model->add({QUrl::fromLocalFile(u"/videos/clip.mp4"_s)});
    return runBatch(*model) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace quorvale::bench
