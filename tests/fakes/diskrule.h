// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// What the parts of the disk's stand-in share: by what it is steered, and where it writes.

#pragma once

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace slowdisk {

// Nothing here may allocate: some of the callers are children between fork and exec. Nor may it
// call what the stand-in defines.
using Path = std::array<char, 4096>;

constexpr std::int64_t million = 1'000'000;

inline std::int64_t now(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return time.tv_sec * 1000 * million + time.tv_nsec;
}

inline bool isMainThread()
{
    return ::syscall(SYS_gettid) == ::getpid();
}

// The path of a file of the folder that steers; empty when none does.
inline Path steering(const char *file)
{
    Path path{};
    if (const char *folder = std::getenv("SLOWDISK"))
        std::snprintf(path.data(), path.size(), "%s/%s", folder, file);
    return path;
}

// What ails the disk.
struct Rule
{
    std::array<char, 8> word{};
    long long number = 0; // of milliseconds, or of the error
    std::array<char, 24> function{};
    Path disk{};
    std::array<char, 16 * 1024> ailing{}; // a path to a line

    bool is(const char *name) const { return std::strcmp(word.data(), name) == 0; }
    bool isOf(const char *name) const { return std::strcmp(function.data(), name) == 0; }
};

// False when there is none.
inline bool readRule(Rule &rule)
{
    const Path file = steering("rule");
    if (file[0] == '\0')
        return false;
    // A time of access that the real disk has to note can take its time.
    const long descriptor =
        ::syscall(SYS_openat, AT_FDCWD, file.data(), O_RDONLY | O_CLOEXEC | O_NOATIME, 0);
    if (descriptor < 0)
        return false;
    rule.ailing.fill('\0');
    ::syscall(SYS_read, descriptor, rule.ailing.data(), rule.ailing.size() - 1);
    ::syscall(SYS_close, descriptor);
    int length = 0;
    if (std::sscanf(rule.ailing.data(), "%7s %lld %23s%*c%4095[^\n]%*c%n", rule.word.data(),
                    &rule.number, rule.function.data(), rule.disk.data(), &length)
        != 4) {
        std::fputs("slowdisk: there is no sense in the rule\n", stderr);
        std::abort();
    }
    std::memmove(rule.ailing.data(), rule.ailing.data() + length,
                 rule.ailing.size() - static_cast<std::size_t>(length));
    return true;
}

// Adds a line to the log.
inline void note(const char *format, ...)
{
    Path line{};
    va_list values;
    va_start(values, format);
    const int written = std::vsnprintf(line.data(), line.size(), format, values);
    va_end(values);
    const long descriptor = ::syscall(SYS_openat, AT_FDCWD, steering("log").data(),
                                      O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const auto length = std::min(static_cast<std::size_t>(written), line.size() - 1);
    ::syscall(SYS_write, descriptor, line.data(), length); // at once, so that lines stay whole
    ::syscall(SYS_close, descriptor);
}

// The C library's own function, which the stand-in's goes on to.
template <typename Function>
Function *next(const char *name)
{
    void *function = ::dlsym(RTLD_NEXT, name);
    if (!function) {
        std::fprintf(stderr, "slowdisk: there is no %s\n", name);
        std::abort();
    }
    return reinterpret_cast<Function *>(function);
}

} // namespace slowdisk
