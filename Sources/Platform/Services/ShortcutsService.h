// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace quor::platform {

/// An automation of the user's.
struct Shortcut {
    QString id; ///< identifies it in its service
    QString name; ///< for the user
    QString subtitle; ///< for the user; can be empty
    QString folder; ///< the name of the folder that holds it; empty if there is none

    friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

/// The desktop's automations. Any thread, but for `launchApplication`.
class ShortcutsService {
public:
    virtual ~ShortcutsService() = default;

    /// Whether the service can be reached. Starts nothing.
    [[nodiscard]] virtual bool isAvailable() const = 0;

    /// Whether this version of the service can run shortcuts.
    [[nodiscard]] virtual bool canRun() const = 0;

    /// All shortcuts, in no order.
    [[nodiscard]] virtual std::vector<Shortcut> shortcuts() const = 0;

    /// Returns `nullopt` if there is none with this id.
    [[nodiscard]] virtual std::optional<Shortcut> shortcutWithId(const QString& id) const = 0;

    /// Runs a shortcut, with or without an input, and waits for its end without a limit of time. Returns its
    /// result, or `nullopt` if it is missing or could not be started.
    [[nodiscard]] virtual std::optional<QString> run(const QString& id, const std::optional<QString>& input)
        = 0;

    /// Shows the user the program in which shortcuts are edited. Failures are ignored. Main thread only.
    virtual void launchApplication() = 0;
};

} // namespace quor::platform
