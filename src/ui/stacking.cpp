// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "stacking.h"

#include <algorithm>

namespace quorvale {

void Stacking::sortByIndex(const QQuickItem *parent)
{
    QList<std::pair<int, QQuickItem *>> items;
    for (QQuickItem *item : parent->childItems()) {
        const QVariant index = item->property("index");
        if (index.isValid())
            items.emplace_back(index.toInt(), item);
    }
    const auto byIndex = [](const auto &item) {
        return item.first;
    };
    // Where nothing is to be done, as mostly, nothing is touched.
    if (std::ranges::is_sorted(items, {}, byIndex))
        return;
    std::ranges::stable_sort(items, {}, byIndex);
    for (qsizetype i = 1; i < items.size(); ++i)
        items[i].second->stackAfter(items[i - 1].second);
}

} // namespace quorvale
