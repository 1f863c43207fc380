// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "testtooldirectories.h"

#include "service/tooldirectories.h"

#include <mutex>

namespace quorvale {

namespace {

std::mutex mutex;
QStringList directoriesForTests;

} // namespace

QStringList toolDirectories()
{
    const std::scoped_lock guard(mutex);
    return directoriesForTests;
}

void test::setToolDirectories(const QStringList &directories)
{
    const std::scoped_lock guard(mutex);
    directoriesForTests = directories;
}

} // namespace quorvale
