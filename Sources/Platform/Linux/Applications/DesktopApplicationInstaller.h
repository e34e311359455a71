// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/ApplicationInstaller.h"

namespace quor::platform {

/// The installer of a Linux desktop. Applications go to `/opt` and `~/Applications`; `pkexec` asks for the
/// rights of an administrator. Main thread only.
class DesktopApplicationInstaller final : public ApplicationInstaller {
public:
    /// Takes the image that `$APPIMAGE` names, or else the nearest folder `Name.app` above the program.
    [[nodiscard]] std::optional<ApplicationBundle> runningBundle() const override;
    [[nodiscard]] std::vector<QByteArray> applicationFolders() const override;
    [[nodiscard]] Ending endPrograms(const ApplicationBundle& bundle) override;
    [[nodiscard]] InstallResult install(const QByteArray& bundlePath, const QByteArray& target) override;
    [[nodiscard]] InstallResult installAsAdministrator(
        const QByteArray& bundlePath, const QByteArray& target) override;
    /// Removes the extended attributes in which browsers note where a file comes from.
    void removeDownloadMarks(const QByteArray& path) override;
    [[nodiscard]] std::error_code open(const ApplicationBundle& bundle, Start start) override;
    void remove(const QByteArray& path) override;
};

} // namespace quor::platform
