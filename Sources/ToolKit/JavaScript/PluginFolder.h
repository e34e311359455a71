// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QUrl>

#include <optional>

namespace quor::toolkit {

/// The folder of a plug-in, with access to its files by paths that are not trusted. No path leads out of the
/// folder:
///
/// - A path that contains "..", a NUL character or half of a surrogate pair is refused. The operation fails.
/// - An absolute path is taken as relative to the folder.
/// - Symbolic links are followed only if they stay inside the folder. The kernel resolves the path within
///   the folder (`openat2`), so a link that is changed at the same time cannot lead outside. On a kernel that
///   cannot do this, no links are followed.
///
/// A folder that does not exist, or whose URL is not the URL of a local folder, has no files. Stateless; any
/// thread.
class PluginFolder final {
public:
    enum class Resolution { byKernel, byWalk };

    /// `byWalk` opens the path name by name without links, as on a kernel without `openat2`.
    explicit PluginFolder(const QUrl& baseURL, Resolution resolution = Resolution::byKernel);

    /// Whether a file or folder of that path exists. True for the folder itself (an empty path), false for a
    /// link that leads nowhere or outside.
    [[nodiscard]] bool exists(const QString& path) const;
    /// The content of a file. Returns `nullopt` if it is missing, unreadable, not a regular file or longer
    /// than 256 MiB.
    [[nodiscard]] std::optional<QByteArray> contents(const QString& path) const;
    /// Creates or replaces a file and returns whether it succeeded. The file is replaced by renaming, so
    /// readers see the old or the new content, and a failure leaves the old. The permissions stay. A link is
    /// replaced, not the file that it leads to. Folders are not created. Also removes what killed writers
    /// left in the file's folder.
    [[nodiscard]] bool write(const QByteArray& data, const QString& path) const;
    /// Removes a file or a link, but not the file that the link leads to, and never a folder.
    void remove(const QString& path) const;

private:
    [[nodiscard]] platform::FileDescriptor openBelow(const QByteArrayList& components, int flags) const;
    /// Opens the folder that contains the last of the components.
    [[nodiscard]] platform::FileDescriptor openParent(const QByteArrayList& components) const;

    QByteArray base_; ///< empty if the URL is not one of a local folder
    Resolution resolution_;
};

} // namespace quor::toolkit
