// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>

#include <optional>

#include <fcntl.h>

/// Reading and writing whole files. Paths are in the file system's encoding. A relative path is
/// resolved against `folder`, an open descriptor; by default against the working folder. Any thread.
namespace quor::platform {

/// Whether the last component of a path may be a symbolic link. Links before it are always followed.
enum class SymbolicLinks { follow, refuse };

/// Opens a file for reading. Never waits: a pipe without a writer opens at once, a terminal does not
/// become this process's own. Empty on failure, with the reason in `errno`.
[[nodiscard]] FileDescriptor openForReading(
    const QByteArray& path, SymbolicLinks links = SymbolicLinks::follow, int folder = AT_FDCWD);

/// Returns the content of an open file from its current position on, without bytes that another process
/// appends meanwhile. Returns `nullopt` if the file is not a regular file, has more than `limit` bytes, or
/// cannot be read; also if `file` is not open.
[[nodiscard]] std::optional<QByteArray> readWhole(int file, qint64 limit);

/// Opens the file and returns its content, by the rules of the two functions above.
[[nodiscard]] std::optional<QByteArray> readFile(
    const QByteArray& path, qint64 limit, SymbolicLinks links = SymbolicLinks::follow, int folder = AT_FDCWD);

/// Writes all the bytes at the current position of an open file, which must be its end. On failure, a part of
/// the bytes may have been written. Fails with `std::errc::file_too_large`, instead of ending the process, if
/// the file would exceed the process's limit (`RLIMIT_FSIZE`).
[[nodiscard]] std::error_code writeWhole(int file, QByteArrayView bytes);

} // namespace quor::platform
