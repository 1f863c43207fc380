// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "faultyread.h"

#include "filetree.h"
#include "testtooldirectories.h"
#include "toolrun.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

constexpr auto faultyTool = R"sh(#!/bin/sh
folder="${0%/*}"
export FAULTY_READ="$(cat "$folder/fault")" FAULTY_READ_NOTE="$folder/failed"
LD_PRELOAD=")sh" FAULTY_READ R"sh(" exec "/usr/bin/${0##*/}" "$@"
)sh";

} // namespace

FaultyRead::FaultyRead()
{
    useMachineTools();
    for (const QString &tool : {u"ffmpeg"_s, u"ffprobe"_s}) {
        const QString path = m_folder.filePath(tool);
        write(path, faultyTool);
        if (!QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
            qFatal("Cannot make the tools' reading fail");
    }
    set({}, 0);
    setToolDirectories({m_folder.path() + u'/'});
}

FaultyRead::~FaultyRead()
{
    useMachineTools();
}

void FaultyRead::set(const QString &path, qint64 bytes)
{
    QFile::remove(m_folder.filePath(u"failed"_s));
    write(m_folder.filePath(u"fault"_s), QByteArray::number(bytes) + ' ' + QFile::encodeName(path));
}

bool FaultyRead::hasFailed() const
{
    return QFile::exists(m_folder.filePath(u"failed"_s));
}

} // namespace quorvale::test
