// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"
#include "ToolKit/Calendar/Files/CalendarPath.h"
#include "ToolKit/Calendar/Items/EventStoreError.h"

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <vector>

#include <sys/types.h>

namespace quor::toolkit {

/// The suffix of the name of each file that holds items.
inline constexpr QByteArrayView itemSuffix = ".ics";
/// Larger calendar files are neither read nor written. In bytes.
inline constexpr qint64 largestItemFile = qint64(64) << 20;

/// One state of a file: differs from the identity of every earlier and later state.
struct FileIdentity {
    ino_t inode = 0;
    off_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// Whether a failure with this `errno` says nothing about the file: the process or the machine has no free
/// descriptors or memory at the moment. What failed is tried again with the next read.
[[nodiscard]] bool isShortage(int error);

struct FileContent {
    FileIdentity identity;
    std::optional<QByteArray> bytes; ///< `nullopt` if the file is too large or cannot be read
    bool isRetried = false; ///< it could not be read for a shortage
};

/// The folder of a source or a calendar, held open: all operations stay in that folder, even if it is renamed
/// meanwhile. A `name` is the name of a file in it. Symbolic links are never followed.
class CalendarDirectory final {
public:
    CalendarDirectory(const QByteArray& root, const CalendarPath& path);

    /// False if the folder does not exist or cannot be read. Then reads return nothing, and changes fail
    /// with `notFound`.
    [[nodiscard]] bool isOpen() const { return bool(folder_); }
    /// Whether the folder could not be opened for a shortage.
    [[nodiscard]] bool lacksResources() const { return lacksResources_; }
    /// Whether the permissions allow files to be created and removed here.
    [[nodiscard]] bool isWritable() const;
    /// Keeps other stores, of any process, from writing here until this object ends. Waits for a store that
    /// is writing.
    void lock() const;
    /// Removes the temporary files that killed writers left. Requires the lock.
    void removeLeftovers() const;

    /// The visible regular files, in no order. Returns `nullopt` if they cannot be listed for a shortage.
    [[nodiscard]] std::optional<std::vector<QByteArray>> names() const;
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
    bool lacksResources_ = false;
};

/// The error for an `errno`. `name` is a path in the file system's encoding.
[[nodiscard]] EventStoreError systemError(int number, const QByteArray& name);

} // namespace quor::toolkit
