// SPDX-License-Identifier: MIT
#include "Platform/Linux/Applications/ChildProcess.h"

#include <QEventLoop>
#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quor::platform {

namespace {

constexpr std::size_t errorLimit = 4096;
constexpr std::size_t pipeCapacity = 65536; // so that one read empties it

void addFile(posix_spawn_file_actions_t& actions, int file, int standardFile, int openMode)
{
    if (file >= 0)
        posix_spawn_file_actions_adddup2(&actions, file, standardFile);
    else
        posix_spawn_file_actions_addopen(&actions, standardFile, "/dev/null", openMode, 0);
}

/// Can be read once the process has ended. Empty if the system offers no such file.
FileDescriptor endingOf(pid_t process)
{
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

int statusAtEnd(pid_t process)
{
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR) { }
    return status;
}

void waitWithEvents(pid_t process)
{
    const FileDescriptor ending = endingOf(process);
    if (!ending)
        return; // then waitpid waits without events
    QEventLoop loop;
    QSocketNotifier notifier(ending.get(), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &loop, [&] {
        notifier.setEnabled(false);
        loop.quit();
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

Pipe Pipe::make()
{
    std::array<int, 2> ends{-1, -1};
    (void)::pipe2(ends.data(), O_CLOEXEC);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

std::error_code startProgram(
    std::vector<QByteArray> arguments, const StandardFiles& files, pid_t& process, const QByteArray& folder)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    addFile(actions, files.input, STDIN_FILENO, O_RDONLY);
    addFile(actions, files.output, STDOUT_FILENO, O_WRONLY);
    addFile(actions, files.error, STDERR_FILENO, O_WRONLY);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    if (!folder.isEmpty())
        posix_spawn_file_actions_addchdir_np(&actions, folder.constData());
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);

    std::vector<char*> list;
    list.reserve(arguments.size() + 1);
    for (auto& argument : arguments)
        list.push_back(argument.data());
    list.push_back(nullptr);
    const int error = posix_spawnp(&process, list.front(), &actions, &attributes, list.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return {error, std::generic_category()};
}

QByteArray outputUntilEnd(pid_t process, const FileDescriptor& output, qsizetype limit)
{
    const FileDescriptor ending = endingOf(process);
    ::fcntl(output.get(), F_SETFL, O_NONBLOCK);
    QByteArray result;
    std::array<char, pipeCapacity> part{};
    for (bool isOpen = true; isOpen;) {
        std::array<pollfd, 2> files{{{output.get(), POLLIN, 0}, {ending.get(), POLLIN, 0}}};
        ::poll(files.data(), files.size(), -1);
        const auto count = ::read(output.get(), part.data(), part.size());
        if (count > 0)
            result.append(part.data(), std::min<qsizetype>(count, limit - result.size()));
        isOpen = count != 0 && files.back().revents == 0;
    }
    (void)statusAtEnd(process);
    return result;
}

ProgramEnd runProgram(const std::vector<QByteArray>& arguments)
{
    // A file in memory, since a program that writes more than a pipe holds would wait for a reader.
    const FileDescriptor errors(::memfd_create("errors", MFD_CLOEXEC));
    pid_t process = 0;
    if (const auto error = startProgram(arguments, {-1, -1, errors.get()}, process))
        return {std::nullopt, QByteArray::fromStdString(error.message())};
    waitWithEvents(process);
    const int status = statusAtEnd(process);
    ProgramEnd end;
    if (WIFEXITED(status))
        end.exitStatus = WEXITSTATUS(status);
    std::array<char, errorLimit> text{};
    const auto count = ::pread(errors.get(), text.data(), text.size(), 0);
    end.errorText = QByteArray(text.data(), count > 0 ? count : 0);
    return end;
}

} // namespace quor::platform
