// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <system_error>
#include <vector>

namespace quor::platform {

/// An application that ships as one folder `Name.app` or as one file `Name.AppImage`. Paths are absolute, in
/// the file system's encoding.
struct ApplicationBundle {
    QByteArray path;
    QByteArray program; ///< relative to `path`; empty if the file itself is the program

    [[nodiscard]] QByteArray programPath() const { return program.isEmpty() ? path : path + '/' + program; }

    friend bool operator==(const ApplicationBundle&, const ApplicationBundle&) = default;
};

/// What became of the installation of a bundle.
struct InstallResult {
    enum class Kind { installed, cancelled, failed };
    Kind kind = Kind::installed;
    QString reason; ///< why it failed, for the user; can be empty
};

/// Installs applications in the folders of the desktop, starts and ends them. Main thread only.
class ApplicationInstaller {
public:
    /// What became of the running programs of a bundle.
    enum class Ending { notRunning, ended, refused };

    virtual ~ApplicationInstaller() = default;

    /// The bundle that this process was started from, or `nullopt` if it is in none.
    [[nodiscard]] virtual std::optional<ApplicationBundle> runningBundle() const = 0;

    /// The folders for applications, whether they exist or not. The preferred one is the last.
    [[nodiscard]] virtual std::vector<QByteArray> applicationFolders() const = 0;

    /// Ends all programs that run from the bundle, other than this process, without asking them. Waits until
    /// they have ended.
    [[nodiscard]] virtual Ending endPrograms(const ApplicationBundle& bundle) = 0;

    /// Copies a bundle to `target`, which goes into the trash if it exists. The folder of `target` is made if
    /// it is missing. The target is complete or as it was at every moment. Events are handled meanwhile,
    /// but not the user's.
    [[nodiscard]] virtual InstallResult install(const QByteArray& bundlePath, const QByteArray& target) = 0;

    /// The same with the rights of an administrator, for which the user is asked. An existing target is
    /// deleted.
    [[nodiscard]] virtual InstallResult installAsAdministrator(
        const QByteArray& bundlePath, const QByteArray& target)
        = 0;

    /// Removes the marks of a file from the internet from the file, or from all files of the folder. Failures
    /// are ignored.
    virtual void removeDownloadMarks(const QByteArray& path) = 0;

    /// Starts the program of the bundle, now or as soon as this process has ended.
    enum class Start { now, afterThisProcess };
    [[nodiscard]] virtual std::error_code open(const ApplicationBundle& bundle, Start start) = 0;

    /// Deletes a file or folder for good. Failures are ignored.
    virtual void remove(const QByteArray& path) = 0;
};

} // namespace quor::platform
