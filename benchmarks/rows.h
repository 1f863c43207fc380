// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

namespace quorvale::bench {

/// A line of the table.
struct Row
{
    QString what;
    QString against;
    QString aim;
    QString figure;
};

/// Takes a line as soon as it is known.
using Report = std::function<void(const Row &)>;

// Each measures one thing, in seconds to some minutes.
void measureBatch(const Report &report);
void measureAdding(const Report &report);
void measureLargeTree(const Report &report);
void measureDrops(const Report &report);
void measureLongList(const Report &report);
void measureStart(const Report &report);
void measureAtVirtualDisplay(const Report &report);
void measureEncoding(const Report &report);
void measureProgressStream(const Report &report);

} // namespace quorvale::bench
