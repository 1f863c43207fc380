// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "conversionbench.h"
#include "patience.h"

#include "recordedfilemanager.h"
#include "recordedpanel.h"
#include "toolrun.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

ConversionBench::ConversionBench()
{
    useMachineTools();
    if (!QDir().mkpath(sources().path()) || !QDir().mkpath(outputs().path()))
        qFatal("Cannot create folders in %s", qPrintable(m_folder.path()));
    auto panel = std::make_unique<RecordedPanel>();
    m_panel = panel.get();
    m_controller =
        ConverterViewModel::create(std::move(panel), std::make_unique<RecordedFileManager>());
    choose(QUrl::fromLocalFile(outputs().path()));
}

void ConversionBench::choose(const QUrl &folder)
{
    m_panel->answers = {QList<QUrl>{folder}};
    m_controller->chooseDestination();
}

ConversionBench::~ConversionBench()
{
    if (!m_controller->isConverting())
        return;
    m_controller->cancel();
    if (!awaitEnd())
        qFatal("A cancelled batch does not end");
}

bool ConversionBench::drop(const QString &path, qsizetype count)
{
    const qsizetype expected = m_controller->jobCount() + count;
    m_controller->handleDrop({QUrl::fromLocalFile(path)});
    return QTest::qWaitFor([&] { return m_controller->jobCount() == expected; }, patience);
}

bool ConversionBench::runBatch()
{
    m_controller->start();
    return m_controller->isConverting() && awaitEnd();
}

bool ConversionBench::awaitEnd()
{
    QSignalSpy changes(m_controller.get(), &ConverterViewModel::jobsChanged);
    while (m_controller->isConverting()) {
        if (!changes.wait(patience)) {
            qWarning("Nothing changes in the batch, which does not end");
            return false;
        }
    }
    return true;
}

JobState ConversionBench::stateOf(const QString &name) const
{
    for (const ConversionJob &job : m_controller->jobs()) {
        if (job.source().fileName() == name)
            return job.state;
    }
    qFatal("No job for %s", qPrintable(name));
}

bool isCompleted(const JobState &state)
{
    if (state.is(JobState::Case::completed))
        return true;
    qWarning("State %d instead of completed: %s", static_cast<int>(state.kind()),
             qPrintable(state.message()));
    return false;
}

} // namespace quorvale::test
