// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>

#include <cstdint>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>

/// Reading and writing whole files. Paths are in the file system's encoding. A relative path is
/// resolved against `folder`, an open descriptor; by default against the working folder. Any thread.
namespace quor::platform {

/// Whether the last component of a path may be a symbolic link. Links before it are always followed.
enum class SymbolicLinks { follow, refuse };

/// One state of a file: differs from the identity of every earlier and later state.
struct FileIdentity {
    ino_t inode = 0;
    off_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};
[[nodiscard]] FileIdentity identityOf(const struct stat& status);

/// Opens a file for reading. Never waits: a pipe without a writer opens at once, a terminal does not
/// become this process's own. Empty on failure, with the reason in `errno`.
[[nodiscard]] FileDescriptor openForReading(
    const QByteArray& path, SymbolicLinks links = SymbolicLinks::follow, int folder = AT_FDCWD);

/// Returns the content of an open file from its current position on, without bytes that another process
/// appends meanwhile. Returns `nullopt` if the file is not a regular file (`errno` is then `EINVAL`), has
/// more than `limit` bytes (`EFBIG`), or cannot be read; also if `file` is not open. Stores the identity of a
/// regular file in `identity`.
[[nodiscard]] std::optional<QByteArray> readWhole(int file, qint64 limit, FileIdentity* identity = nullptr);

/// Opens the file and returns its content, by the rules of the two functions above.
[[nodiscard]] std::optional<QByteArray> readFile(
    const QByteArray& path, qint64 limit, SymbolicLinks links = SymbolicLinks::follow, int folder = AT_FDCWD);

/// Writes all the bytes at the current position of an open file, which must be its end. On failure, a part of
/// the bytes may have been written. Fails with `std::errc::file_too_large`, instead of ending the process, if
/// the file would exceed the process's limit (`RLIMIT_FSIZE`).
[[nodiscard]] std::error_code writeWhole(int file, QByteArrayView bytes);

} // namespace quor::platform
