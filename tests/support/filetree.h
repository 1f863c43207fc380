// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>

namespace quorvale::test {

/// A temporary folder, readable for everybody, that is filled with files and folders.
class FileTree
{
public:
    FileTree();

    QString path(const QString &name) const { return m_root.filePath(name); }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }
    QUrl root() const { return QUrl::fromLocalFile(m_root.path()); }

    /// Makes a file and the folders that lead to it.
    QUrl addFile(const QString &name, const QByteArray &contents = {}) const;
    QUrl addFolder(const QString &name) const;
    void addFiles(const QStringList &names) const;

private:
    QTemporaryDir m_root;
};

// The test program ends when these cannot write or read.
void write(const QString &path, const QByteArray &contents);
QByteArray contentsOf(const QString &path);

/// The file names of the URLs.
QStringList fileNames(const QList<QUrl> &urls);

} // namespace quorvale::test
