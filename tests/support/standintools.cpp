// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "standintools.h"

#include "filetree.h"
#include "patience.h"
#include "testtooldirectories.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

Script &Script::add(const QByteArray &command)
{
    m_text += command + '\n';
    return *this;
}

Script &Script::add(const QByteArray &command, int number)
{
    return add(command + ' ' + QByteArray::number(number));
}

Script &Script::add(const QByteArray &command, const QByteArray &bytes)
{
    return add(command + ' ' + bytes.toPercentEncoding());
}

StandInTools::StandInTools()
{
    for (const QString &tool : {u"ffmpeg"_s, u"ffprobe"_s})
        restoreTool(tool);
    setScript(u"ffprobe"_s, describing());
    setToolDirectories({folder()});
}

StandInTools::~StandInTools()
{
    setToolDirectories({});
}

void StandInTools::removeTool(const QString &tool)
{
    if (!QFile::remove(path(tool)))
        QDir().rmdir(path(tool));
}

void StandInTools::restoreTool(const QString &tool)
{
    removeTool(tool);
    if (!QFile::link(QStringLiteral(STAND_IN_TOOL), path(tool)))
        qFatal("Cannot put a stand-in tool at %s", qPrintable(path(tool)));
}

void StandInTools::replaceTool(const QString &tool, const QByteArray &contents)
{
    removeTool(tool);
    write(path(tool), contents);
    QFile::setPermissions(path(tool), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void StandInTools::setScript(const QString &tool, const Script &script)
{
    write(path(tool + u".script"_s), script.text());
}

Script StandInTools::describing(Script script)
{
    return script.out(R"({"format": {"duration": "10.0"},
        "streams": [{"codec_type": "video", "bit_rate": "1000000"}]})");
}

void StandInTools::setDescription(const Script &script)
{
    write(path(u"ffmpeg.script.description"_s), script.text());
}

void StandInTools::setScript(const QString &tool, int number, const Script &script)
{
    write(path(u"%1.script.%2"_s.arg(tool).arg(number)), script.text());
}

QList<QList<QByteArray>> StandInTools::runs(const QString &tool) const
{
    QList<QList<QByteArray>> runs;
    QList<QByteArray> run;
    QByteArray word;
    const QString record = path(tool + u".arguments"_s);
    for (const char c : QFile::exists(record) ? contentsOf(record) : QByteArray()) {
        if (c == '\0') {
            run << word;
            word.clear();
        } else if (c == '\n' && word.isEmpty()) {
            runs << run;
            run.clear();
        } else {
            word += c;
        }
    }
    return runs;
}

void StandInTools::forgetRuns()
{
    for (const QString &tool : {u"ffmpeg"_s, u"ffprobe"_s})
        QFile::remove(path(tool + u".arguments"_s));
}

int StandInTools::countedInterrupts(const QString &tool) const
{
    return static_cast<int>(QFileInfo(path(tool + u".interrupts"_s)).size());
}

Script StandInTools::untilReleased(Script script) const
{
    return script.touch(path(u"running"_s)).await(path(u"released"_s));
}

bool StandInTools::awaitWaiting() const
{
    return QTest::qWaitFor([this] { return QFile::exists(path(u"running"_s)); }, patience);
}

void StandInTools::release() const
{
    write(path(u"released"_s), {});
}

} // namespace quorvale::test
