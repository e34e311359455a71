// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>
#include <system_error>
#include <utility>

namespace quor::platform {

/// A file or folder in the trash.
struct TrashedItem {
    QByteArray path; ///< in the folder `files` of a trash
    QByteArray infoPath; ///< the file that says where it came from
};

/// The user's trash as all desktops keep it: the one in the home folder, and one at the top of each other
/// file system. What is moved there can be restored with any file manager. Any thread.
class Trash final {
public:
    /// `homeTrash` is the folder of the trash in the home folder, made when it is needed.
    explicit Trash(QByteArray homeTrash)
        : homeTrash_(std::move(homeTrash))
    {
    }
    /// Returns the trash of the user, `$XDG_DATA_HOME/Trash`; `nullopt` for a user without a home folder.
    [[nodiscard]] static std::optional<Trash> ofUser();

    /// Moves a file, folder or symbolic link into the trash of its file system. `path` must be absolute.
    /// After a failure it is where it was. Stores in `item` what has become of it.
    [[nodiscard]] std::error_code put(const QByteArray& path, TrashedItem& item) const;

    /// Moves an item back to `path`, which must not exist.
    [[nodiscard]] static std::error_code restore(const TrashedItem& item, const QByteArray& path);

private:
    QByteArray homeTrash_;
};

} // namespace quor::platform
