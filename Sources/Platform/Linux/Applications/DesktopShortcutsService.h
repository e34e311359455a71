// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/ShortcutsService.h"

namespace quor::platform {

/// Runs the desktop entry files in the folder `quor/shortcuts` of the user's application data. Reads the
/// folder at each call.
///
/// The id of a shortcut is the path of its file below that folder, without `.desktop`; its folder is the path
/// of the folder that the file is in. Files are left out if their name is hidden or no valid text, if they
/// have more than 256 KiB, or if they are more than 16 folders deep. Links to files are followed, links to
/// folders are not.
class DesktopShortcutsService final : public ShortcutsService {
public:
    /// False for a user without a home folder. The folder of the shortcuts need not exist.
    [[nodiscard]] bool isAvailable() const override;
    [[nodiscard]] bool canRun() const override { return isAvailable(); }
    [[nodiscard]] std::vector<Shortcut> shortcuts() const override;
    [[nodiscard]] std::optional<Shortcut> shortcutWithId(const QString& id) const override;

    /// Starts the program of the entry, without a shell. The input is its standard input, without one that is
    /// empty. The result is the first MiB of its standard output, even if it ends with an error; what it
    /// writes to standard error goes to that of this process.
    [[nodiscard]] std::optional<QString> run(const QString& id, const std::optional<QString>& input) override;

    /// Opens the folder in the desktop's file manager, and makes it if it is missing.
    void launchApplication() override;
};

} // namespace quor::platform
