// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filesizelimit.h"

#include "filetree.h"
#include "testtooldirectories.h"
#include "toolrun.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

// Without the signal that would end the writer.
constexpr auto limitedFFmpeg = R"sh(#!/bin/sh
trap '' XFSZ
exec prlimit --fsize="$(cat "${0%/*}/limit")" /usr/bin/ffmpeg "$@"
)sh";

} // namespace

FileSizeLimit::FileSizeLimit()
{
    useMachineTools();
    const QString ffmpeg = m_folder.filePath(u"ffmpeg"_s);
    write(ffmpeg, limitedFFmpeg);
    if (!QFile::setPermissions(ffmpeg, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)
        || !QFile::link(u"/usr/bin/ffprobe"_s, m_folder.filePath(u"ffprobe"_s)))
        qFatal("Cannot limit ffmpeg");
    lift();
    setToolDirectories({m_folder.path() + u'/'});
}

FileSizeLimit::~FileSizeLimit()
{
    useMachineTools();
}

void FileSizeLimit::set(qint64 bytes)
{
    write(m_folder.filePath(u"limit"_s), QByteArray::number(bytes));
}

void FileSizeLimit::lift()
{
    write(m_folder.filePath(u"limit"_s), "unlimited");
}

} // namespace quorvale::test
