// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileContents.h"

#include <QByteArray>

#include <vector>

#include <sys/stat.h>

/// Opening, making and listing folders. Paths as in `FileContents.h`. Any thread.
namespace quor::platform {

/// Opens a folder, to list it and to reach its files by `openat` and the like. Empty on failure, with the
/// reason in `errno`.
[[nodiscard]] FileDescriptor openFolder(
    const QByteArray& path, SymbolicLinks links = SymbolicLinks::follow, int folder = AT_FDCWD);

/// Makes the folder and all missing folders above it, with the permissions `mode`, with the bits of the
/// process's umask cleared. Also succeeds if something other than a folder has that name. After a failure,
/// some of the folders above may have been made.
[[nodiscard]] std::error_code makeFolder(const QByteArray& path, mode_t mode);

/// Which names a list contains: only those without a dot at the beginning, or only those with it.
enum class Names { visible, hidden };

/// Returns the names of a folder's own entries of one kind (`S_IFREG`, `S_IFDIR`), in no order, without
/// "." and "..". A symbolic link has the kind `S_IFLNK`, even if it leads to another kind. Returns an empty
/// list if the folder cannot be read, with the reason in `errno`; else `errno` is 0. Two threads must not
/// list one descriptor at the same time.
[[nodiscard]] std::vector<QByteArray> entryNames(int folder, mode_t kind, Names names = Names::visible);

} // namespace quor::platform
