// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/filemanager.h"

#include <QList>

namespace quorvale::test {

/// A file manager that only remembers what it was to show.
struct RecordedFileManager : FileManager
{
    void reveal(const QUrl &item) override { revealed << item; }

    QList<QUrl> revealed;
};

} // namespace quorvale::test
