// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>

#include <chrono>
#include <optional>
#include <utility>

namespace quor::platform {

/// Locks an open folder until its descriptor is closed, and waits for that at most `timeout`. Returns false
/// after that. On a file system without locks it returns true at once.
[[nodiscard]] bool lockFolder(int folder, std::chrono::milliseconds timeout);

/// The sole right to write in a folder, among all processes and threads that ask for it before they write.
/// Ends with this object, and with the process. Nothing is added to the folder, since the folder itself is
/// locked (`flock`). On a file system without such locks, as some network drives, nobody waits. Can be moved.
class FolderLock final {
public:
    /// Waits at most `timeout` until nobody else has the lock. Returns `nullopt` after that, with the reason
    /// `EWOULDBLOCK` in `errno`, or if the folder cannot be opened, with the reason for that. A thread that
    /// has the lock already must not ask for it again. Any thread.
    [[nodiscard]] static std::optional<FolderLock> acquire(
        const QByteArray& path, std::chrono::milliseconds timeout);

    [[nodiscard]] int folder() const { return folder_.get(); } ///< The open folder. Borrowed.

private:
    explicit FolderLock(FileDescriptor folder)
        : folder_(std::move(folder))
    {
    }

    FileDescriptor folder_;
};

} // namespace quor::platform
