// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "nameorder.h"

#include "model/filename.h"
#include "model/filepath.h"

#include <QCollator>
#include <QThread>

#include <algorithm>
#include <optional>
#include <system_error>
#include <thread>
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

    // Each thread makes the keys of a part and sorts it; then the parts are merged.
    constexpr qsizetype worthAThread = 1000;
    const int parts = files.size() < worthAThread ? 1 : QThread::idealThreadCount();
    const auto begin = [&keyed, parts](int part) {
        return keyed.begin() + std::ssize(keyed) * part / parts;
    };
    const auto isBefore = [](const KeyedFile &a, const KeyedFile &b) {
        return a.key->compare(*b.key) < 0;
    };
    const auto sort = [&](int part) {
        for (auto each = begin(part); each != begin(part + 1); ++each)
            each->key = collator.sortKey(shownPath(lastPathComponent(each->file.path())));
        std::stable_sort(begin(part), begin(part + 1), isBefore);
    };
    {
        std::vector<std::jthread> others;
        for (int part = 1; part < parts; ++part) {
            try {
                others.emplace_back(sort, part);
            } catch (const std::system_error &) { // there is no thread to be had
                sort(part);
            }
        }
        sort(0);
    }
    for (int width = 1; width < parts; width *= 2) {
        for (int part = 0; part + width < parts; part += 2 * width)
            std::inplace_merge(begin(part), begin(part + width),
                               begin(std::min(part + 2 * width, parts)), isBefore);
    }
    for (qsizetype i = 0; KeyedFile & each : keyed)
        files[i++] = std::move(each.file);
}

} // namespace quorvale
