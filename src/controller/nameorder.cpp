// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "nameorder.h"

#include "model/filename.h"
#include "model/filepath.h"

#include <QCollator>
#include <QtConcurrentMap>

#include <algorithm>
#include <optional>
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
    SourceFile file;
    std::optional<QCollatorSortKey> key; // made in the second step
};

} // namespace

void sortByName(QList<SourceFile> &files)
{
    if (files.size() < 2)
        return;
    const QCollator collator = nameCollator();
    // The first use completes the collator; from then on threads may share it.
    (void)collator.sortKey(QString());

    std::vector<KeyedFile> keyed;
    keyed.reserve(static_cast<std::size_t>(files.size()));
    for (SourceFile &file : files)
        keyed.push_back({std::move(file), std::nullopt});
    QtConcurrent::blockingMap(keyed, [&collator](KeyedFile &each) {
        each.key = collator.sortKey(shownPath(lastPathComponent(each.file.path())));
    });
    std::ranges::stable_sort(
        keyed, [](const KeyedFile &a, const KeyedFile &b) { return a.key->compare(*b.key) < 0; });
    for (qsizetype i = 0; KeyedFile & each : keyed)
        files[i++] = std::move(each.file);
}

} // namespace quorvale
