// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileContents.h"
#include "Platform/Files/FolderLock.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace quor::toolkit {

/// The accesses to files that stored lists need. A symbolic link as the last part of a path is never
/// followed, and a pipe is never waited for. Stateless. Any thread.
class FileManager final {
public:
    /// The state of a file, `nullopt` if there is no regular file.
    using Identity = std::optional<platform::FileIdentity>;
    struct File {
        /// Of a file that was changed only just now, an identity that no file has: the next change could
        /// leave the true one as it is.
        Identity identity;
        QByteArray contents;
    };

    /// Returns empty contents if the file is missing, longer than 1 GiB, or not a regular file. Returns
    /// `nullopt` if it cannot be read: it is not permitted, the medium is damaged, the process has too many
    /// open files or no memory.
    [[nodiscard]] std::optional<File> read(const QString& path) const;

    [[nodiscard]] Identity identity(const QString& path) const;

    /// Locks the folder against the other lists that write there. See `FolderLock::acquire`.
    [[nodiscard]] std::optional<platform::FolderLock> lockDirectory(
        const QString& path, std::chrono::milliseconds timeout) const;

    /// Replaces the file as a whole, or creates it; a file that is replaced keeps its permissions. Replaces
    /// a symbolic link, not the file that it leads to. Returns false on failure, which leaves the old
    /// content. Does not sync. Requires the lock of the folder.
    [[nodiscard]] bool write(const QByteArray& data, const QString& path) const;

    /// Removes a file or symbolic link, never a folder. Returns whether nothing is there now.
    bool removeFile(const QString& path) const;

    /// Returns whether anything is there, also for a symbolic link that leads nowhere.
    [[nodiscard]] bool itemExists(const QString& path) const;

    /// Makes the folder and all missing folders above it. Returns false on failure. Also succeeds if
    /// something other than a folder has that name.
    bool createDirectory(const QString& path) const;

    /// Removes the folder with all its content; of a symbolic link, only the link. Returns false on failure,
    /// which may leave a part of the content; true if nothing was there.
    bool removeDirectory(const QString& path) const;

    /// Returns the names of the regular files directly in the folder, in no order, without those that begin
    /// with a dot. Returns an empty list if the folder cannot be read.
    [[nodiscard]] QStringList visibleFileNames(const QString& directory) const;

    /// Removes the files that killed processes left in the folder while they wrote.
    void removeLeftovers(const platform::FolderLock& directory) const;
};

} // namespace quor::toolkit
