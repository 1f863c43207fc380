// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "queue.h"

#include "toolrun.h"

#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quorvale::test {

Queue::Queue(Tools tools)
{
    if (tools == Tools::standIn)
        m_tools.emplace();
    else
        useMachineTools();
    auto panel = std::make_unique<RecordedPanel>();
    m_panel = panel.get();
    auto fileManager = std::make_unique<RecordedFileManager>();
    m_fileManager = fileManager.get();
    m_model = ConverterViewModel::create(std::move(panel), std::move(fileManager));
    m_folder.addFolder(u"sources"_s);
    choose(m_folder.addFolder(u"outputs"_s));
}

Queue::~Queue()
{
    if (!m_model || !m_model->isConverting())
        return;
    m_model->cancel();
    if (!awaitEnd())
        qFatal("A cancelled batch does not end");
}

void Queue::choose(const std::optional<QUrl> &destination)
{
    m_panel->answers = {destination ? QList<QUrl>{*destination} : QList<QUrl>{}};
    m_model->chooseDestination();
}

void Queue::add(const QStringList &names)
{
    for (const QString &name : names)
        m_model->add({QUrl::fromLocalFile(u"/in/"_s + name)});
}

bool Queue::drop(const QString &path, qsizetype count)
{
    const qsizetype expected = m_model->jobCount() + count;
    m_model->handleDrop({QUrl::fromLocalFile(path)});
    return QTest::qWaitFor([&] { return m_model->jobCount() == expected; }, patience);
}

bool Queue::runBatch()
{
    m_model->start();
    return m_model->isConverting() && awaitEnd();
}

bool Queue::awaitEnd()
{
    QEventLoop loop;
    QTimer silence;
    QObject::connect(m_model.get(), &ConverterViewModel::isConvertingChanged, &loop,
                     [&] { loop.quit(); });
    QObject::connect(m_model.get(), &ConverterViewModel::jobsChanged, &silence,
                     [&] { silence.start(patience); });
    QObject::connect(&silence, &QTimer::timeout, &loop, [&] { loop.exit(EXIT_FAILURE); });
    silence.start(patience);
    if (!m_model->isConverting() || loop.exec() == EXIT_SUCCESS)
        return true;
    qWarning("Nothing changes in the batch, which does not end");
    return false;
}

bool isConverted(const ConversionJob &job)
{
    if (job.state.is(JobState::Case::completed))
        return true;
    qWarning("%s is in state %d instead of completed: %s", qPrintable(job.source().fileName()),
             static_cast<int>(job.state.kind()), qPrintable(job.state.message()));
    return false;
}

} // namespace quorvale::test
