// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace quorvale::bench {

/// A line of the table.
struct Row
{
    QString what;
    QString against;
    QString aim;
    QString figure;
};

// Each measures one thing, in seconds to a minute.
QList<Row> measureBatch();
QList<Row> measureAdding();
QList<Row> measureDrops();
QList<Row> measureLongList();
QList<Row> measureStart();
QList<Row> measureAtVirtualDisplay();
QList<Row> measureEncoding();
QList<Row> measureProgressStream();

} // namespace quorvale::bench
