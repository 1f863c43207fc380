// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// A stand-in for ffmpeg and ffprobe. It records its arguments and then follows a script, both in
// files beside the path under which it was started:
//
//   <tool>.arguments  every run appends its arguments: each word followed by a NUL, each run by an
//                     additional "\n"
//   <tool>.script.N   what the Nth run does, counted from 1; without it:
//   <tool>.script     what every run does
//   <tool>.script.description  what a run does, if there is this one, that has only a source
//   <tool>.interrupts a byte for each SIGINT that the last run with "count-interrupts" received
//
// A script holds one command a line. TEXT is percent-encoded bytes.
//
//   out TEXT, err TEXT                  write to a stream
//   out-repeat N TEXT, err-repeat N TEXT  write TEXT N times
//   write-output TEXT                   write a file at the path in the last argument
//   wait MILLISECONDS                   do nothing for a while
//   touch TEXT, await TEXT              make a file; wait until a file is there
//   close-out, close-err                close a stream early
//   ignore-interrupt                    ignore SIGINT from here on
//   catch-interrupt STATUS              exit with STATUS at a SIGINT
//   count-interrupts                    survive SIGINTs and count them
//   leave-grandchild MILLISECONDS       leave a process behind that keeps both streams open
//   leave-flooding-grandchild MILLISECONDS  the same, which writes to both all the time
//   die SIGNAL                          end by a signal
//   exit STATUS                         end
//
// A script that ends without "die" or "exit" ends with status 0. A test that fails may leave a
// stand-in behind, so every one, and what it left, ends by itself within a minute and says so.

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using Milliseconds = std::chrono::milliseconds;

// In seconds: longer than a test waits (tests/support/patience.h).
constexpr unsigned lifetime = 50;

volatile std::sig_atomic_t interruptsFile = -1;
volatile std::sig_atomic_t statusAtInterrupt = 0;

extern "C" void countInterrupt(int)
{
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(interruptsFile, "!", 1);
    errno = error;
}

extern "C" void exitAtInterrupt(int)
{
    _exit(statusAtInterrupt);
}

extern "C" void exitAtTheEndOfTime(int)
{
    constexpr char remark[] = "stand-in tool: nothing ended it in time\n";
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, remark, sizeof remark - 1);
    _exit(97);
}

// Children do not inherit the alarm.
void limitLifetime()
{
    std::signal(SIGALRM, exitAtTheEndOfTime);
    sigset_t alarm;
    ::sigemptyset(&alarm);
    ::sigaddset(&alarm, SIGALRM);
    ::sigprocmask(SIG_UNBLOCK, &alarm, nullptr);
    ::alarm(lifetime);
}

std::string decoded(const std::string &text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

void writeAll(int stream, const std::string &bytes)
{
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(stream, bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            std::exit(98); // the reader is gone
        written += static_cast<std::size_t>(count);
    }
}

void writeRepeatedly(int stream, long count, const std::string &bytes)
{
    // In large blocks, so that a flood is one.
    std::string block;
    long copiesInBlock = 0;
    while (copiesInBlock < count && block.size() < 65536) {
        block += bytes;
        ++copiesInBlock;
    }
    for (; count >= copiesInBlock && count > 0; count -= copiesInBlock)
        writeAll(stream, block);
    for (; count > 0; --count)
        writeAll(stream, bytes);
}

std::string beside(const std::string &tool, const std::string &suffix)
{
    return tool + '.' + suffix;
}

// Appends this run's arguments and returns how many runs there have been.
long recordArguments(const std::string &tool, int argc, char **argv)
{
    const std::string path = beside(tool, "arguments");
    {
        std::string run;
        for (int i = 1; i < argc; ++i)
            run.append(argv[i]).push_back('\0');
        run += '\n';
        std::ofstream(path, std::ios::app | std::ios::binary) << run;
    }
    // A run ends where a line feed stands right behind a NUL or another run's end.
    std::ifstream record(path, std::ios::binary);
    const std::string all(std::istreambuf_iterator<char>(record), {});
    long runs = 0;
    char previous = '\n';
    for (const char c : all) {
        if (c == '\n' && (previous == '\0' || previous == '\n'))
            ++runs;
        previous = c;
    }
    return runs;
}

void follow(std::istream &script, const std::string &tool, const std::string &lastArgument)
{
    std::string line;
    while (std::getline(script, line)) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        const auto number = [&] {
            long value = 0;
            words >> value;
            return value;
        };
        const auto text = [&] {
            std::string value;
            words >> value;
            return decoded(value);
        };
        if (command == "out") {
            writeAll(STDOUT_FILENO, text());
        } else if (command == "err") {
            writeAll(STDERR_FILENO, text());
        } else if (command == "out-repeat") {
            const long count = number();
            writeRepeatedly(STDOUT_FILENO, count, text());
        } else if (command == "err-repeat") {
            const long count = number();
            writeRepeatedly(STDERR_FILENO, count, text());
        } else if (command == "write-output") {
            std::ofstream(lastArgument, std::ios::binary) << text();
        } else if (command == "wait") {
            const auto end = std::chrono::steady_clock::now() + Milliseconds(number());
            std::this_thread::sleep_until(end);
        } else if (command == "touch") {
            const std::ofstream made(text());
        } else if (command == "await") {
            const std::string path = text();
            while (!std::filesystem::exists(path))
                std::this_thread::sleep_for(Milliseconds(2));
        } else if (command == "close-out") {
            ::close(STDOUT_FILENO);
        } else if (command == "close-err") {
            ::close(STDERR_FILENO);
        } else if (command == "ignore-interrupt") {
            std::signal(SIGINT, SIG_IGN);
        } else if (command == "catch-interrupt") {
            statusAtInterrupt = static_cast<int>(number());
            std::signal(SIGINT, exitAtInterrupt);
        } else if (command == "count-interrupts") {
            interruptsFile = ::open(beside(tool, "interrupts").c_str(),
                                    O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
            std::signal(SIGINT, countInterrupt);
        } else if (command == "leave-grandchild") {
            const Milliseconds life(number());
            if (::fork() == 0) {
                limitLifetime();
                std::this_thread::sleep_for(life);
                _exit(0);
            }
        } else if (command == "leave-flooding-grandchild") {
            const auto end = std::chrono::steady_clock::now() + Milliseconds(number());
            if (::fork() == 0) {
                limitLifetime();
                while (std::chrono::steady_clock::now() < end) {
                    writeAll(STDOUT_FILENO, std::string(4096, 'x'));
                    writeAll(STDERR_FILENO, std::string(4096, 'x'));
                }
                _exit(0);
            }
        } else if (command == "die") {
            const int signal = static_cast<int>(number());
            std::signal(signal, SIG_DFL);
            const rlimit noCore{0, 0};
            ::setrlimit(RLIMIT_CORE, &noCore);
            ::raise(signal);
        } else if (command == "exit") {
            std::exit(static_cast<int>(number()));
        } else if (!command.empty()) {
            writeAll(STDERR_FILENO, "stand-in tool: unknown command " + command + '\n');
            std::exit(99);
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    limitLifetime();
    const std::string tool = argv[0];
    const long run = recordArguments(tool, argc, argv);
    std::ifstream script;
    // The last two of these are "-i" and the source.
    if (argc > 2 && std::string(argv[argc - 2]) == "-i")
        script.open(beside(tool, "script.description"));
    if (!script.is_open())
        script.open(beside(tool, "script." + std::to_string(run)));
    if (!script.is_open())
        script.open(beside(tool, "script"));
    if (!script.is_open()) {
        writeAll(STDERR_FILENO, "stand-in tool: no script\n");
        return 99;
    }
    follow(script, tool, argc > 1 ? argv[argc - 1] : "");
    return 0;
}
