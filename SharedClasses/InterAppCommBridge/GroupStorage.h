// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "InterAppCommBridge/MenubarStatusItemData.h"

#include <QString>

#include <variant>
#include <vector>

namespace quor {

namespace groupstorage {

// The payloads of Action. They are outside of it because a variant needs their default member initializers,
// which the compiler knows only after the enclosing class.
namespace action {

struct StopTimer {
    QString taskID;
    double delta = 0; ///< Seconds relative to now: 0 for now, negative for the past.
    friend bool operator==(const StopTimer&, const StopTimer&) = default;
};

struct AdjustTimer {
    QString taskID;
    double delta = 0; ///< Seconds to move the start by. 0 moves it to the end of the last entry.
    friend bool operator==(const AdjustTimer&, const AdjustTimer&) = default;
};

struct StartTimer {
    QString taskID;
    friend bool operator==(const StartTimer&, const StartTimer&) = default;
};

struct None {
    friend bool operator==(const None&, const None&) = default;
};

struct OpenMenu {
    friend bool operator==(const OpenMenu&, const OpenMenu&) = default;
};

struct OpenQuor {
    friend bool operator==(const OpenQuor&, const OpenQuor&) = default;
};

struct QuitQuor {
    friend bool operator==(const QuitQuor&, const QuitQuor&) = default;
};

struct RequestMenuEntries {
    friend bool operator==(const RequestMenuEntries&, const RequestMenuEntries&) = default;
};

} // namespace action

/// A request of one application to the other. There is one slot: a new request replaces the one before.
struct Action {
    using StopTimer = action::StopTimer;
    using AdjustTimer = action::AdjustTimer;
    using StartTimer = action::StartTimer;
    using None = action::None;
    using OpenMenu = action::OpenMenu;
    using OpenQuor = action::OpenQuor;
    using QuitQuor = action::QuitQuor;
    using RequestMenuEntries = action::RequestMenuEntries;

    using Value = std::variant<StopTimer, AdjustTimer, StartTimer, None, OpenMenu, OpenQuor, QuitQuor,
        RequestMenuEntries>;
    Value value = None{};

    friend bool operator==(const Action&, const Action&) = default;
};

} // namespace groupstorage

/// Typed access to the keys of the preferences suite that both applications share.
///
/// Each call opens the suite, accesses one key, and closes the suite; nothing is cached. If the suite cannot
/// be opened, the process's standard defaults are used instead. A missing or unreadable value reads as its
/// default; a record that cannot be encoded is stored as empty data. No failure is reported. There are no
/// locks: the last write of a key stays, even if nobody has read the one before. Any thread.
class GroupStorage final {
public:
    using Action = groupstorage::Action;

    /// The name of the suite.
    const QString groupID = QStringLiteral("QX77Z4012M.com.quor-app");

    [[nodiscard]] MenubarStatusItemData timerData() const;
    [[nodiscard]] std::vector<MenuEntry> menuEntryData() const;
    [[nodiscard]] Action action() const;
    [[nodiscard]] bool showWorkingDays() const;
    [[nodiscard]] double workingDayLengthSeconds() const;
    [[nodiscard]] bool showDurationInPercent() const;
    [[nodiscard]] bool enableLogging() const;

    void setSearchTerm(const QString& term) const;
    void setAction(const Action& action) const;

    // For the main application.
    [[nodiscard]] QString searchTerm() const;
    void setTimerData(const MenubarStatusItemData& data) const;
    void setMenuEntryData(const std::vector<MenuEntry>& entries) const;
    void setShowWorkingDays(bool show) const;
    void setWorkingDayLengthSeconds(double seconds) const;
    void setShowDurationInPercent(bool show) const;
    void setEnableLogging(bool enable) const;
};

} // namespace quor
