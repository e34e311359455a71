// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quor::platform {

/// The files of one preferences suite, each the content of one key. Does not interpret the contents.
///
/// A file is replaced as a whole, so a reader sees the old content or the new one, even if a writer dies.
/// Nothing is cached or synced, and no call waits for a lock. Any thread.
class PreferenceFolder final {
public:
    /// `path` is in the file system's encoding. A folder without a path (empty) cannot be opened.
    explicit PreferenceFolder(QByteArray path);

    /// Makes the folder and all missing folders above it, accessible to the user alone. A folder that exists
    /// keeps its permissions. Returns whether the folder exists now and its files can be accessed.
    [[nodiscard]] bool open() const;

    /// Returns `nullopt` if the key has no regular file, or one that cannot be read or exceeds 256 MiB.
    [[nodiscard]] std::optional<QByteArray> read(const QString& key) const;

    /// Stores the content. Makes the folder if it is missing. Returns false on failure, which leaves the old
    /// content. Content of more than 256 MiB is refused, and so is a key that can have no file. Also removes
    /// the files that killed writers left in the folder.
    [[nodiscard]] bool replace(const QString& key, const QByteArray& content) const;

    /// Removes the key's file. Returns whether the folder can be opened and the key has no file now; false
    /// for a key that can have no file.
    [[nodiscard]] bool remove(const QString& key) const;

private:
    [[nodiscard]] QByteArray pathOf(const QString& key) const; ///< Empty if the key can have no file.

    QByteArray path_;
};

} // namespace quor::platform
