// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <ctime>
#include <memory>

#include <sys/types.h>

namespace quor::toolkit {

/// A running `quor-plugin-host`, the program that runs one script for this process. Killed when its owner
/// ends. The program also ends by itself when this process does.
///
/// One thread at a time, which can be any thread.
class HostProcess final {
public:
    /// What `quor-plugin-host` exits with if this process is of another version of the kit.
    static constexpr int wrongVersion = 3;

    /// Starts the program, which is looked for at `../libexec/quor` seen from the executable, in the
    /// installed kit that the executable was linked with, and where the kit was configured for. The process
    /// gets no open file but its end of the socket, as standard input, and standard error. On failure returns
    /// null and sets `error`.
    [[nodiscard]] static std::unique_ptr<HostProcess> start(QString& error);
    ~HostProcess();
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    /// Hands over this process's end of the socket. Call it once.
    [[nodiscard]] platform::FileDescriptor takeSocket() { return std::move(socket_); }

    [[nodiscard]] std::chrono::nanoseconds processorTime() const; ///< of all its threads, since its start
    [[nodiscard]] qint64 memory() const; ///< without memory that is shared with files, in bytes
    [[nodiscard]] bool isAsleep() const; ///< whether all its threads sleep or are stopped

    /// Kills the process if it still runs, and returns how it has ended, as `waitpid` does.
    int end();

private:
    HostProcess(pid_t process, platform::FileDescriptor socket);
    [[nodiscard]] QByteArray procFolder() const;

    pid_t process_;
    clockid_t clock_ = CLOCK_MONOTONIC; ///< of the processor time
    platform::FileDescriptor socket_;
    bool hasEnded_ = false;
    int status_ = 0;
};

} // namespace quor::toolkit
