// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace quorvale::test {

/// What this process holds, as the kernel counts it.
struct Holdings
{
    qsizetype descriptors = 0;
    qsizetype threads = 0;
    qsizetype children = 0; ///< running ones and such that nobody has waited for

    static Holdings now();

    friend bool operator==(const Holdings &, const Holdings &) = default;
};

/// Tells what code under test leaves behind. While this object lives, temporary files and folders
/// are made in a folder of its own. To be made before what is to be watched, and asked when that
/// is gone; what is made once and kept, such as Qt's own descriptors, has to be there before.
class Leftovers
{
public:
    Leftovers();
    ~Leftovers();

    Leftovers(const Leftovers &) = delete;
    Leftovers &operator=(const Leftovers &) = delete;

    /// What there is more of than at first and which files are left, in words; empty for nothing.
    /// Gives threads and children a few seconds to end.
    QString found() const;

private:
    QString difference() const;

    QByteArray m_outerFolder;
    QTemporaryDir m_folder;
    Holdings m_before;
};

/// The memory of this process that is in use, in bytes.
qint64 residentMemory();

/// Whether that tells how little the code under test keeps: not with the sanitizers, which keep as
/// much or more themselves.
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
inline constexpr bool memoryTells = false;
#else
inline constexpr bool memoryTells = true;
#endif

} // namespace quorvale::test
