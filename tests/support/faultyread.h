// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTemporaryDir>

namespace quorvale::test {

/// While it lives, the machine's own tools are used, and one file cannot be read behind so many
/// bytes, as on a disk that fails there.
class FaultyRead
{
public:
    FaultyRead();
    ~FaultyRead();

    FaultyRead(const FaultyRead &) = delete;
    FaultyRead &operator=(const FaultyRead &) = delete;

    /// The file, and the bytes, from now on. There is none at first.
    void set(const QString &path, qint64 bytes);

    /// Whether a tool has come to them since then.
    bool hasFailed() const;

private:
    QTemporaryDir m_folder;
};

} // namespace quorvale::test
