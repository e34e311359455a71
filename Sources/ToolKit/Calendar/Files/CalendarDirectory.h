// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileContents.h"
#include "ToolKit/Calendar/Files/CalendarPath.h"
#include "ToolKit/Calendar/Items/EventStoreError.h"

#include <QByteArray>

#include <optional>
#include <vector>

#include <sys/stat.h>

namespace quor::toolkit {

/// The suffix of the name of each file that holds items.
inline constexpr QByteArrayView itemSuffix = ".ics";
/// Larger calendar files are neither read nor written. In bytes.
inline constexpr qint64 largestItemFile = qint64(64) << 20;

using platform::FileIdentity;

struct FileContent {
    FileIdentity identity;
    std::optional<QByteArray> bytes; ///< `nullopt` if the file is too large or cannot be read
    int error = 0; ///< the `errno` if the file could not be opened

    /// The error for a file without bytes. `name` is its name.
    [[nodiscard]] EventStoreError failure(const QByteArray& name) const;
};

/// Whether the `errno` says that this process can open nothing at the moment.
[[nodiscard]] bool isTemporary(int error);

/// The folder of a source or a calendar, held open: all operations stay in that folder, even if it is renamed
/// meanwhile. A `name` is the name of a file in it. Symbolic links are never followed.
class CalendarDirectory final {
public:
    CalendarDirectory(const QByteArray& root, const CalendarPath& path);

    /// False if the folder does not exist or cannot be opened. Then reads return nothing, and changes fail
    /// with the error for `openError`.
    [[nodiscard]] bool isOpen() const { return bool(folder_); }
    [[nodiscard]] int openError() const { return openError_; } ///< An `errno`; 0 if the folder is open.
    /// Whether the permissions allow files to be created and removed here.
    [[nodiscard]] bool isWritable() const;
    /// Returns the error of each future `write` of that file, if it is known already: the permissions of the
    /// folder or of an existing file do not allow it. `name` may be empty, for the folder alone.
    [[nodiscard]] EventStoreResult writeObstacle(const QByteArray& name = {}) const;
    /// Keeps other stores, of any process, from writing here until this object ends. Waits at most some
    /// seconds for a store that is writing, then fails: its process may have been stopped.
    [[nodiscard]] EventStoreResult lock(const QByteArray& name) const;
    /// Removes the temporary files that killed writers left. Requires the lock.
    void removeLeftovers() const;

    /// The visible entries of one kind (`S_IFREG`, `S_IFDIR`), in no order.
    [[nodiscard]] std::vector<QByteArray> names(mode_t kind = S_IFREG) const;
    /// Returns `nullopt` if there is no regular file of that name.
    [[nodiscard]] std::optional<FileIdentity> identity(const QByteArray& name) const;
    /// Returns `nullopt` if there is no regular file of that name. `limit` is in bytes.
    [[nodiscard]] std::optional<FileContent> read(
        const QByteArray& name, qint64 limit = largestItemFile) const;

    /// Replaces the file if it is still in the state `expected`, or creates it if `expected` is `nullopt`.
    /// Fails with `conflict`, and leaves the file alone, if it is in another state. Stores the new state in
    /// `written`. Synced.
    [[nodiscard]] EventStoreResult write(const QByteArray& name, const QByteArray& bytes,
        const std::optional<FileIdentity>& expected, FileIdentity* written = nullptr) const;
    /// Removes the file if it is still in the state `expected`, fails with `conflict` otherwise.
    [[nodiscard]] EventStoreResult remove(const QByteArray& name, const FileIdentity& expected) const;

private:
    platform::FileDescriptor folder_;
    int openError_ = 0;
};

/// The error for an `errno`. `name` is a path in the file system's encoding.
[[nodiscard]] EventStoreError systemError(int number, const QByteArray& name);

} // namespace quor::toolkit
