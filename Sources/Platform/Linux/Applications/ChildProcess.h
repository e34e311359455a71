// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>

#include <optional>
#include <system_error>
#include <vector>

#include <sys/types.h>

/// Programs that this process starts, with arguments that need not be valid text. Not installed.
namespace quor::platform {

/// A pipe. Other processes that this one starts do not inherit it.
struct Pipe {
    FileDescriptor reading;
    FileDescriptor writing;

    /// Nothing is open if there are too many open files.
    [[nodiscard]] static Pipe make();
};

/// The standard files of a process. A negative number stands for `/dev/null`.
struct StandardFiles {
    int input = -1;
    int output = -1;
    int error = -1;
};

/// Starts a program in a session of its own. `arguments` begins with its name, which is searched for in
/// `PATH` if it has no slash. Its working folder is `folder`, or that of this process if that is empty.
/// Stores its process in `process`. Any thread.
[[nodiscard]] std::error_code startProgram(std::vector<QByteArray> arguments, const StandardFiles& files,
    pid_t& process, const QByteArray& folder = {});

/// Waits until the program has ended, and returns the first `limit` bytes that come out of the pipe until
/// then; the rest is read and dropped. Programs that it has started may keep the pipe open for longer. Any
/// thread.
[[nodiscard]] QByteArray outputUntilEnd(pid_t process, const FileDescriptor& output, qsizetype limit);

/// How a program has ended.
struct ProgramEnd {
    std::optional<int> exitStatus; ///< `nullopt` if it could not be started or was killed
    QByteArray errorText; ///< the first 4 KiB that it wrote to standard error
};

/// Runs a program, and handles events until it has ended, but not those of the user's input devices. Main
/// thread only.
[[nodiscard]] ProgramEnd runProgram(const std::vector<QByteArray>& arguments);

} // namespace quor::platform
