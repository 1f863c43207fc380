// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/resource.h>

namespace quorvale::test {

/// While it lives, this process gets only so many threads more: then the system has none left. For
/// tests with tests/fakes/scarcity.cpp linked into them, as the superuser, too, whom the system's
/// own limit does not stop. One at a time.
class FewThreads
{
public:
    explicit FewThreads(int count = 0);
    ~FewThreads();

    FewThreads(const FewThreads &) = delete;
    FewThreads &operator=(const FewThreads &) = delete;

    /// How many threads were asked for in vain.
    int refusals() const;
};

/// While it lives, this process gets only so many descriptors more at a time. What it has stays
/// open; what it closes can be had again, if its number is below those that it could get.
class FewDescriptors
{
public:
    explicit FewDescriptors(int count = 0);
    ~FewDescriptors();

    FewDescriptors(const FewDescriptors &) = delete;
    FewDescriptors &operator=(const FewDescriptors &) = delete;

private:
    rlimit m_before{};
};

} // namespace quorvale::test
