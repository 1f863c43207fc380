// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// A disk that cannot be read everywhere. Preloaded into a program, it makes read() fail with EIO
// behind so many bytes of one file. The environment variable FAULTY_READ holds the number and,
// behind a space, the path, and FAULTY_READ_NOTE the path of a file that is made when it fails.

#undef _FORTIFY_SOURCE // which would define read() already

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Where reading the open file fails; nowhere in any other file.
long faultIn(int descriptor)
{
    const char *rule = std::getenv("FAULTY_READ");
    if (!rule)
        return -1;
    char *path = nullptr;
    const long fault = std::strtol(rule, &path, 10);
    std::array<char, 32> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    std::array<char, 4096> target{};
    ::readlink(link.data(), target.data(), target.size() - 1);
    return std::strcmp(path + 1, target.data()) == 0 ? fault : -1;
}

} // namespace

extern "C" ssize_t read(int descriptor, void *buffer, size_t size)
{
    const int error = errno;
    const long fault = faultIn(descriptor);
    errno = error;
    const long at = fault < 0 ? 0 : ::lseek(descriptor, 0, SEEK_CUR);
    if (fault < 0 || at + static_cast<long>(size) <= fault)
        return ::syscall(SYS_read, descriptor, buffer, size);
    if (at < fault)
        return ::syscall(SYS_read, descriptor, buffer, fault - at);
    ::close(::open(std::getenv("FAULTY_READ_NOTE"), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    errno = EIO;
    return -1;
}
