// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filename.h"

namespace quorvale {

QByteArrayView withoutTrailingSlashes(QByteArrayView path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QByteArrayView lastPathComponent(QByteArrayView path)
{
    path = withoutTrailingSlashes(path);
    return path.size() == 1 ? path : path.sliced(path.lastIndexOf('/') + 1);
}

QByteArrayView folderName(QByteArrayView path)
{
    path = withoutTrailingSlashes(path);
    const QByteArrayView folder = withoutTrailingSlashes(path.first(path.lastIndexOf('/') + 1));
    QByteArrayView name = lastPathComponent(folder);
    while (name == ".." && name.begin() != folder.begin())
        name = lastPathComponent(folder.first(name.begin() - folder.begin()));
    return folder.sliced(name.begin() - folder.begin());
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
