// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filepath.h"

using namespace Qt::StringLiterals;

namespace quorvale {

QByteArray filePath(const QUrl &file)
{
    // Decoding to text is quicker, but puts U+FFFD for whatever is none.
    const QString text = file.path(QUrl::FullyDecoded);
    if (!text.contains(QChar::ReplacementCharacter))
        return text.toUtf8();
    return QByteArray::fromPercentEncoding(file.path(QUrl::FullyEncoded).toLatin1());
}

QUrl fileUrl(const QByteArray &path)
{
    const QString text = QString::fromUtf8(path);
    // Qt takes the first component behind two slashes for a host.
    if (!text.contains(QChar::ReplacementCharacter) && !text.startsWith("//"_L1))
        return QUrl::fromLocalFile(text);
    return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"));
}

} // namespace quorvale
