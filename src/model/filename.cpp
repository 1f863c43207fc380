// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filename.h"

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// The root's slash is the only trailing one that means something.
QStringView withoutTrailingSlashes(QStringView path)
{
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

} // namespace

QString lastPathComponent(QStringView path)
{
    path = withoutTrailingSlashes(path);
    return path.size() == 1 ? path.toString() : path.sliced(path.lastIndexOf(u'/') + 1).toString();
}

QString folderName(QStringView path)
{
    path = withoutTrailingSlashes(path);
    return lastPathComponent(path.first(path.lastIndexOf(u'/') + 1));
}

QStringView pathExtension(QStringView name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.sliced(dot + 1) : QStringView();
}

QStringView withoutExtension(QStringView name)
{
    const QStringView extension = pathExtension(name);
    return extension.isEmpty() ? name : name.chopped(extension.size() + 1);
}

QString outputFileName(QStringView sourceName, OutputCodec codec, int attempt)
{
    QString name = withoutExtension(sourceName).toString() + "_converted"_L1;
    if (attempt > 1)
        name += u'_' + QString::number(attempt);
    return name + (isProRes(codec) ? ".mov"_L1 : ".mp4"_L1);
}

} // namespace quorvale
