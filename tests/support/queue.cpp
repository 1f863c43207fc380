// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "queue.h"

#include <QFile>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvale::test {

Queue::Queue()
{
    auto panel = std::make_unique<RecordedPanel>();
    m_panel = panel.get();
    auto fileManager = std::make_unique<RecordedFileManager>();
    m_fileManager = fileManager.get();
    m_model = ConverterViewModel::create(std::move(panel), std::move(fileManager));
    choose(m_output.root());
}

void Queue::add(const QStringList &names)
{
    for (const QString &name : names)
        m_model->add({QUrl::fromLocalFile(u"/in/"_s + name)});
}

void Queue::choose(const std::optional<QUrl> &destination)
{
    m_panel->answers = {destination ? QList<QUrl>{*destination} : QList<QUrl>{}};
    m_model->chooseDestination();
}

Script Queue::untilReleased(Script script) const
{
    return script.touch(m_tools.path(u"running"_s)).await(m_tools.path(u"released"_s));
}

bool Queue::isToolWaiting() const
{
    return QFile::exists(m_tools.path(u"running"_s));
}

void Queue::release() const
{
    QFile file(m_tools.path(u"released"_s));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("Cannot release the stand-in tool");
}

bool runBatch(ConverterViewModel &model, int milliseconds)
{
    QSignalSpy changes(&model, &ConverterViewModel::isConvertingChanged);
    model.start();
    bool isInTime = true;
    while (model.isConverting() && isInTime)
        isInTime = changes.wait(milliseconds);
    return isInTime;
}

} // namespace quorvale::test
