// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quor::toolkit {

/// The few accesses to files that stored lists need, each with a plain yes or no. Only regular files
/// count as files: a symbolic link is never followed, a pipe never waited for. Stateless; any thread.
class FileManager final {
public:
    /// None for what is missing, unreadable, longer than 1 GiB or no regular file.
    [[nodiscard]] std::optional<QByteArray> contents(const QString& path) const;

    /// Replaces the content of the file in place, or makes it. A symbolic link there is replaced by the
    /// file. Where there is no room for the new content, the file keeps the old one. No temporary file
    /// is used, so a file of more than a page may be left torn by a kill in the midst of the write.
    [[nodiscard]] bool write(const QByteArray& data, const QString& path) const;

    /// Removes a file or symbolic link, never a folder. True if nothing is there afterwards.
    bool removeFile(const QString& path) const;

    /// Whether anything is there, a dangling link included.
    [[nodiscard]] bool itemExists(const QString& path) const;

    /// Makes the folder and those above it.
    bool createDirectory(const QString& path) const;

    /// Removes the folder with all that is in it. Of a symbolic link, the link alone.
    bool removeDirectory(const QString& path) const;

    /// The names of the folder's own files, in no order, without those that begin with a dot.
    [[nodiscard]] QStringList visibleFileNames(const QString& directory) const;
};

} // namespace quor::toolkit
