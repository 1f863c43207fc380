// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// A disk that is slow, asleep, gone or broken: defines the C library's functions that ask a disk
// for more than the content of an open file, so that they wait before they do what they do, or
// fail. Preloaded into a program as a library, or linked into a test, which steers it by a folder
// that the environment variable SLOWDISK names (see tests/support/slowdisk.h). There it reads the
// file "rule" whenever a function is called. As long as there is none, nothing waits and nothing is
// written. Its lines are what ails the disk, the path of the disk, and the paths on it that are
// ailing, with all that is below:
//
//   each MILLISECONDS any    every call takes so much longer
//   until MILLISECONDS any   nobody gets an answer before that time of the monotonic clock
//   fail ERRNO FUNCTION      calls of the function fail; "readdir" at the fifth entry of a folder
//
// What waits obeys the next rule as soon as there is one. To the file "log" it adds a line for
//
//   PROCESS main FUNCTION PATH       a call for what is on the disk on the main thread, before it
//                                    waits
//   PROCESS other FUNCTION PATH      on another thread

#undef _FORTIFY_SOURCE // which would define some of the functions already

#include "diskrule.h"

#include <cerrno>
#include <string_view>
#include <type_traits>

#include <dirent.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

using namespace slowdisk;

namespace {

Path pathOf(int descriptor)
{
    std::array<char, 32> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    Path path{};
    ::syscall(SYS_readlinkat, AT_FDCWD, link.data(), path.data(), path.size() - 1);
    return path;
}

// What a name stands for: a path, or one that begins at the folder of the descriptor.
Path pathOf(int folder, const char *name)
{
    Path path{};
    if (!name)
        return path;
    if (name[0] == '/') {
        std::snprintf(path.data(), path.size(), "%s", name);
        return path;
    }
    Path base{};
    if (folder == AT_FDCWD)
        ::syscall(SYS_getcwd, base.data(), base.size());
    else
        base = pathOf(folder);
    const std::size_t length = std::strlen(base.data());
    std::snprintf(path.data(), path.size(), "%s", base.data());
    if (name[0] != '\0')
        std::snprintf(path.data() + length, path.size() - length, "/%s", name);
    return path;
}

bool isAtOrBelow(std::string_view path, std::string_view folder)
{
    return path.substr(0, folder.size()) == folder
           && (path.size() == folder.size() || path[folder.size()] == '/');
}

bool isAiling(std::string_view path, const Rule &rule)
{
    std::string_view folders(rule.ailing.data());
    while (!folders.empty()) {
        const std::size_t length = std::min(folders.find('\n'), folders.size());
        if (isAtOrBelow(path, folders.substr(0, length)))
            return true;
        folders.remove_prefix(std::min(length + 1, folders.size()));
    }
    return false;
}

// Waits as long as the present rule says. Gives back the error with which the function is to fail;
// 0 for none.
int await(const char *function, std::string_view path, Rule &rule)
{
    constexpr std::int64_t moment = 2 * million;
    const std::int64_t begin = now(CLOCK_MONOTONIC);
    do {
        if (!isAiling(path, rule))
            return 0;
        if (rule.is("fail"))
            return rule.isOf(function) ? static_cast<int>(rule.number) : 0;
        const std::int64_t end = (rule.is("each") ? begin : 0) + rule.number * million;
        const std::int64_t left = end - now(CLOCK_MONOTONIC);
        if (left <= 0)
            return 0;
        const timespec part{0, std::min(left, moment)};
        ::clock_nanosleep(CLOCK_MONOTONIC, 0, &part, nullptr);
    } while (readRule(rule));
    return 0;
}

template <typename GetPath>
int ask(const char *function, const GetPath &getPath)
{
    const int before = errno;
    int error = 0;
    Rule rule;
    if (readRule(rule)) {
        const Path path = getPath();
        if (isAtOrBelow(path.data(), rule.disk.data()))
            note("%d %s %s %s\n", ::getpid(), isMainThread() ? "main" : "other", function,
                 path.data());
        error = await(function, path.data(), rule);
    }
    errno = before;
    return error;
}

int askFor(const char *function, const char *name)
{
    return ask(function, [=] { return pathOf(AT_FDCWD, name); });
}

int askAt(const char *function, int folder, const char *name)
{
    return ask(function, [=] { return pathOf(folder, name); });
}

// A stream asks the disk for many entries at once, at the beginning. Of a disk that fails some come
// before it does.
int askForEntries(const char *function, DIR *stream)
{
    thread_local int error = 0;
    thread_local int spared = 0;
    if (::telldir(stream) == 0) {
        error = ask(function, [=] { return pathOf(::dirfd(stream)); });
        spared = 4;
    }
    return spared-- > 0 ? 0 : error;
}

// What a function gives back that fails.
template <typename Result>
Result failure(int error)
{
    errno = error;
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else
        return -1;
}

mode_t modeOf(int flags, va_list more)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
}

} // namespace

// The C library's declarations say of some parameters what the compiler would not expect to be
// looked at here.
#pragma GCC diagnostic ignored "-Wnonnull-compare"

// Defines NAME with the parameters, which are handed on as the arguments; ASKING comes before and
// gives back an error.
#define SLOW(RESULT, NAME, PARAMETERS, ARGUMENTS, ASKING)                                          \
    RESULT NAME PARAMETERS                                                                         \
    {                                                                                              \
        static auto *const real = next<RESULT PARAMETERS>(#NAME);                                  \
        const int error = ASKING;                                                                  \
        return error != 0 ? failure<RESULT>(error) : real ARGUMENTS;                               \
    }

#define SLOW_OPEN(NAME)                                                                            \
    int NAME(const char *path, int flags, ...)                                                     \
    {                                                                                              \
        static auto *const real = next<int(const char *, int, ...)>(#NAME);                        \
        va_list more;                                                                              \
        va_start(more, flags);                                                                     \
        const mode_t mode = modeOf(flags, more);                                                   \
        va_end(more);                                                                              \
        const int error = askFor(#NAME, path);                                                     \
        return error != 0 ? failure<int>(error) : real(path, flags, mode);                         \
    }

#define SLOW_OPEN_AT(NAME)                                                                         \
    int NAME(int folder, const char *path, int flags, ...)                                         \
    {                                                                                              \
        static auto *const real = next<int(int, const char *, int, ...)>(#NAME);                   \
        va_list more;                                                                              \
        va_start(more, flags);                                                                     \
        const mode_t mode = modeOf(flags, more);                                                   \
        va_end(more);                                                                              \
        const int error = askAt(#NAME, folder, path);                                              \
        return error != 0 ? failure<int>(error) : real(folder, path, flags, mode);                 \
    }

extern "C" {

SLOW_OPEN(open)
SLOW_OPEN(open64)
SLOW_OPEN_AT(openat)
SLOW_OPEN_AT(openat64)
// As they are called where the compiler checks buffers.
SLOW(int, __open_2, (const char *path, int flags), (path, flags), askFor("open", path))
SLOW(int, __open64_2, (const char *path, int flags), (path, flags), askFor("open", path))
SLOW(int, __openat_2, (int folder, const char *path, int flags), (folder, path, flags),
     askAt("openat", folder, path))
SLOW(int, __openat64_2, (int folder, const char *path, int flags), (folder, path, flags),
     askAt("openat", folder, path))
SLOW(int, creat, (const char *path, mode_t mode), (path, mode), askFor("creat", path))
SLOW(FILE *, fopen, (const char *path, const char *mode), (path, mode), askFor("fopen", path))
SLOW(FILE *, fopen64, (const char *path, const char *mode), (path, mode), askFor("fopen", path))

SLOW(DIR *, opendir, (const char *path), (path), askFor("opendir", path))
SLOW(dirent *, readdir, (DIR * stream), (stream), askForEntries("readdir", stream))
SLOW(dirent64 *, readdir64, (DIR * stream), (stream), askForEntries("readdir", stream))

SLOW(int, stat, (const char *path, struct stat *facts), (path, facts), askFor("stat", path))
SLOW(int, stat64, (const char *path, struct stat64 *facts), (path, facts), askFor("stat", path))
SLOW(int, lstat, (const char *path, struct stat *facts), (path, facts), askFor("lstat", path))
SLOW(int, lstat64, (const char *path, struct stat64 *facts), (path, facts), askFor("lstat", path))
SLOW(int, fstatat, (int folder, const char *path, struct stat *facts, int flags),
     (folder, path, facts, flags), askAt("fstatat", folder, path))
SLOW(int, fstatat64, (int folder, const char *path, struct stat64 *facts, int flags),
     (folder, path, facts, flags), askAt("fstatat", folder, path))
SLOW(int, statx, (int folder, const char *path, int flags, unsigned mask, struct statx *facts),
     (folder, path, flags, mask, facts), askAt("statx", folder, path))
SLOW(int, statvfs, (const char *path, struct statvfs *facts), (path, facts),
     askFor("statvfs", path))
SLOW(int, statvfs64, (const char *path, struct statvfs64 *facts), (path, facts),
     askFor("statvfs", path))
#ifdef __x86_64__ // as they were called before version 2.33, by programs and libraries of that age
SLOW(int, __xstat, (int version, const char *path, struct stat *facts), (version, path, facts),
     askFor("stat", path))
SLOW(int, __xstat64, (int version, const char *path, struct stat64 *facts), (version, path, facts),
     askFor("stat", path))
SLOW(int, __lxstat, (int version, const char *path, struct stat *facts), (version, path, facts),
     askFor("lstat", path))
SLOW(int, __lxstat64, (int version, const char *path, struct stat64 *facts), (version, path, facts),
     askFor("lstat", path))
SLOW(int, __fxstatat, (int version, int folder, const char *path, struct stat *facts, int flags),
     (version, folder, path, facts, flags), askAt("fstatat", folder, path))
SLOW(int, __fxstatat64,
     (int version, int folder, const char *path, struct stat64 *facts, int flags),
     (version, folder, path, facts, flags), askAt("fstatat", folder, path))
#endif

SLOW(int, access, (const char *path, int mode), (path, mode), askFor("access", path))
SLOW(int, eaccess, (const char *path, int mode), (path, mode), askFor("access", path))
SLOW(int, euidaccess, (const char *path, int mode), (path, mode), askFor("access", path))
SLOW(int, faccessat, (int folder, const char *path, int mode, int flags),
     (folder, path, mode, flags), askAt("faccessat", folder, path))
SLOW(ssize_t, readlink, (const char *path, char *target, size_t size), (path, target, size),
     askFor("readlink", path))
SLOW(ssize_t, readlinkat, (int folder, const char *path, char *target, size_t size),
     (folder, path, target, size), askAt("readlinkat", folder, path))
SLOW(ssize_t, __readlink_chk, (const char *path, char *target, size_t size, size_t all),
     (path, target, size, all), askFor("readlink", path))
SLOW(char *, realpath, (const char *path, char *resolved), (path, resolved),
     askFor("realpath", path))
SLOW(char *, __realpath_chk, (const char *path, char *resolved, size_t all), (path, resolved, all),
     askFor("realpath", path))
SLOW(char *, canonicalize_file_name, (const char *path), (path), askFor("realpath", path))

SLOW(int, mkdir, (const char *path, mode_t mode), (path, mode), askFor("mkdir", path))
SLOW(int, mkdirat, (int folder, const char *path, mode_t mode), (folder, path, mode),
     askAt("mkdirat", folder, path))
SLOW(int, rmdir, (const char *path), (path), askFor("rmdir", path))
SLOW(int, unlink, (const char *path), (path), askFor("unlink", path))
SLOW(int, unlinkat, (int folder, const char *path, int flags), (folder, path, flags),
     askAt("unlinkat", folder, path))
SLOW(int, rename, (const char *from, const char *to), (from, to), askFor("rename", to))
SLOW(int, chdir, (const char *path), (path), askFor("chdir", path))
SLOW(int, truncate, (const char *path, off_t length), (path, length), askFor("truncate", path))
SLOW(int, truncate64, (const char *path, off64_t length), (path, length), askFor("truncate", path))
SLOW(int, inotify_add_watch, (int descriptor, const char *path, uint32_t mask),
     (descriptor, path, mask), askFor("inotify_add_watch", path))

} // extern "C"
