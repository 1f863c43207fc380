// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filename.h"

namespace quorvale {

namespace {

// The root's slash is the only trailing one that means something.
QByteArrayView withoutTrailingSlashes(QByteArrayView path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

} // namespace

QByteArrayView lastPathComponent(QByteArrayView path)
{
    path = withoutTrailingSlashes(path);
    return path.size() == 1 ? path : path.sliced(path.lastIndexOf('/') + 1);
}

QByteArrayView folderName(QByteArrayView path)
{
    path = withoutTrailingSlashes(path);
    return lastPathComponent(path.first(path.lastIndexOf('/') + 1));
}

QByteArrayView pathExtension(QByteArrayView name)
{
    const qsizetype dot = name.lastIndexOf('.');
    return dot > 0 ? name.sliced(dot + 1) : QByteArrayView();
}

QString lowerCaseExtension(QByteArrayView name)
{
    return QString::fromUtf8(pathExtension(name)).toLower();
}

QByteArrayView withoutExtension(QByteArrayView name)
{
    const QByteArrayView extension = pathExtension(name);
    return extension.isEmpty() ? name : name.chopped(extension.size() + 1);
}

QByteArray outputFileName(QByteArrayView sourceName, OutputCodec codec, int attempt)
{
    QByteArray name = withoutExtension(sourceName).toByteArray() + "_converted";
    if (attempt > 1)
        name += '_' + QByteArray::number(attempt);
    return name + (isProRes(codec) ? ".mov" : ".mp4");
}

} // namespace quorvale
