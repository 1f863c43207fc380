// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "outputurl.h"

#include "model/filename.h"

#include <QDir>
#include <QFileInfo>

namespace quorvale {

namespace {

bool isTaken(const QString &path)
{
    const QFileInfo object(path);
    return object.exists() || object.isSymLink();
}

} // namespace

QUrl outputUrl(const QUrl &source, const QUrl &destination, const ConversionSettings &settings)
{
    const QString sourceName = lastPathComponent(source.toLocalFile());
    const QDir folder(destination.toLocalFile());
    int attempt = 1;
    QString path = folder.filePath(outputFileName(sourceName, settings.codec));
    while (!settings.overwrite && isTaken(path)) {
        ++attempt;
        path = folder.filePath(outputFileName(sourceName, settings.codec, attempt));
    }
    return QUrl::fromLocalFile(path);
}

} // namespace quorvale
