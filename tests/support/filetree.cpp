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

QUrl FileTree::addFile(const QString &name) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("Cannot make %s", qPrintable(path(name)));
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

QStringList fileNames(const QList<QUrl> &urls)
{
    QStringList names;
    for (const QUrl &url : urls)
        names << url.fileName();
    return names;
}

} // namespace quorvale::test
