// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Peer/Model/MenuRows.h"
#include "Peer/Model/Tracker.h"
#include "Peer/Service/WallClockTimer.h"
#include "Platform/Services/DistributedNotificationCenter.h"

#include <functional>

namespace quor::peer {

/// The main application's side of the exchange with the helper: publishes what the status item
/// shows, whenever that changes, and carries out what the helper asks for.
///
/// Borrows all that it is given, which must outlive it. Main thread only.
class Exchange final {
public:
    struct Handlers {
        std::function<void()> openQuor; ///< the application is to come to the front
        std::function<void()> quitQuor; ///< the application is to quit; the helper has been told to
        std::function<void()> notStored; ///< a change of the user's could not be written
    };

    Exchange(Tracker& tracker, const platform::Clock& clock, platform::DistributedNotificationCenter& center,
        MenuTexts texts, Handlers handlers);
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    /// Drops the action that an earlier run left unread, observes from then on, and publishes. Once.
    void begin();

    /// Tells the helper the state of things, and sees to it that it is told again when time changes it.
    void publish();

    /// The same, after the settings have changed too.
    void publishSettings();

    void openMenu();
    void killHelper();

    [[nodiscard]] const QString& helperBundleID() const { return bridge_.helperItemBundleID; }

private:
    using Action = GroupStorage::Action;

    void handleUpdate();
    void handle(const Action::StopTimer& asked);
    void handle(const Action::AdjustTimer& asked);
    void handle(const Action::StartTimer& asked);
    void handle(const Action::None&);
    void handle(const Action::OpenMenu&);
    void handle(const Action::OpenQuor&);
    void handle(const Action::QuitQuor&);
    void handle(const Action::RequestMenuEntries&);
    void report(Outcome outcome);
    void writeRows();

    Tracker& tracker_;
    const platform::Clock& clock_;
    platform::DistributedNotificationCenter& center_;
    const InterAppCommBridge bridge_;
    const MenuTexts texts_;
    const Handlers handlers_;
    WallClockTimer timer_;
    bool rowsAreOnShow_ = false; ///< the helper's menu may be open on rows of ours
    platform::DistributedNotificationCenter::ObserverToken observer_{};
};

} // namespace quor::peer
