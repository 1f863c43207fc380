// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QUrl>

namespace quorvale {

/// A file that a job converts: a file URL and the path that it names. Kept as the path alone where
/// that says the same, for a URL takes several times the memory and the time to make. A plain
/// value.
class SourceFile
{
public:
    /// The file of `url`, a file URL, which stays as it is given.
    SourceFile(const QUrl &url);

    /// The file at the absolute path `path`, whose URL is fileUrl()'s.
    explicit SourceFile(const QByteArray &path) : m_path(path) {}

    /// The file URL; made anew where it is not kept.
    QUrl url() const;

    /// The path as the system knows it.
    const QByteArray &path() const { return m_path; }

    friend bool operator==(const SourceFile &, const SourceFile &) = default;

private:
    QByteArray m_path;
    QUrl m_url; // empty where the path says the same
};

} // namespace quorvale
