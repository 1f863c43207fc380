// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace quorvale {

// To the system the path of a file is a sequence of bytes, which need not be text. A file URL can
// carry any: what is no UTF-8 stands percent-encoded in it (RFC 3986, section 2.1).

/// The path of `file`, a file URL, as the system knows it.
QByteArray filePath(const QUrl &file);

/// The file URL for the absolute path `path`.
QUrl fileUrl(const QByteArray &path);

/// A path or a part of one as the user sees it: every byte that is no text as U+FFFD.
inline QString shownPath(QByteArrayView path)
{
    return QString::fromUtf8(path);
}

} // namespace quorvale
