// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTemporaryDir>

namespace quorvale::test {

/// While it lives, the machine's own tools are used, and ffmpeg cannot write further than so many
/// bytes into a file: writing fails as it does on a full disk, whoever runs the test.
class FileSizeLimit
{
public:
    FileSizeLimit();
    ~FileSizeLimit();

    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

    /// Of the runs that begin from now on. There is none at first.
    void set(qint64 bytes);
    void lift();

private:
    QTemporaryDir m_folder;
};

} // namespace quorvale::test
