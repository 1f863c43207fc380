// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "nameorder.h"

#include "model/filename.h"

#include <QCollator>

#include <algorithm>
#include <vector>

namespace quorvale {

namespace {

QCollator nameCollator()
{
    // The C and POSIX locales compare bytes: with them a collator ignores both settings below.
    QLocale locale = QLocale::system().collation();
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English, QLocale::UnitedStates);
    QCollator collator(locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

struct KeyedFile
{
    QCollatorSortKey key;
    QUrl file;
};

} // namespace

void sortByName(QList<QUrl> &files)
{
    if (files.size() < 2)
        return;
    const QCollator collator = nameCollator();
    std::vector<KeyedFile> keyed;
    keyed.reserve(static_cast<std::size_t>(files.size()));
    for (const QUrl &file : files)
        keyed.push_back({collator.sortKey(lastPathComponent(file.path(QUrl::FullyDecoded))), file});
    std::ranges::stable_sort(
        keyed, [](const auto &a, const auto &b) { return a.compare(b) < 0; }, &KeyedFile::key);
    std::ranges::transform(keyed, files.begin(), &KeyedFile::file);
}

} // namespace quorvale
