// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filetree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorvale::test {

FileTree::FileTree()
{
    constexpr auto readable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                              | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther
                              | QFile::ExeOther;
    if (!m_root.isValid() || !QFile::setPermissions(m_root.path(), readable))
        qFatal("Cannot make a temporary folder");
}

QUrl FileTree::addFile(const QString &name, const QByteArray &contents) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    write(path(name), contents);
    return url(name);
}

QUrl FileTree::addFolder(const QString &name) const
{
    if (!QDir().mkpath(path(name)))
        qFatal("Cannot make %s", qPrintable(path(name)));
    return url(name);
}

void FileTree::addFiles(const QStringList &names) const
{
    for (const QString &name : names)
        addFile(name);
}

void write(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("Cannot write %s", qPrintable(path));
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read %s", qPrintable(path));
    return file.readAll();
}

QStringList fileNames(const QList<QUrl> &urls)
{
    QStringList names;
    for (const QUrl &url : urls)
        names << url.fileName();
    return names;
}

} // namespace quorvale::test
