// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

/// Questions about the folders for applications. Paths are absolute, in the file system's encoding. Any
/// thread.
namespace quor::toolkit {

/// Whether a bundle is in one of the folders, or in any folder of the name "Applications".
[[nodiscard]] bool isInApplicationsFolder(
    const QByteArray& bundlePath, const std::vector<QByteArray>& folders);

/// Returns the existing folder with the most entries, its links resolved, and of several such folders the
/// last. If none exists, returns the last one, which is to be made. Returns `nullopt` if there are no
/// folders.
[[nodiscard]] std::optional<QByteArray> preferredInstallDirectory(const std::vector<QByteArray>& folders);

} // namespace quor::toolkit
