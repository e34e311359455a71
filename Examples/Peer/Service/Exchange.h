// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Peer/Model/MenuRows.h"
#include "Peer/Model/Tracker.h"
#include "Peer/Service/WallClockTimer.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/DistributedNotificationCenter.h"

namespace quor::peer {

/// The main application's side of the exchange with the helper: publishes what the status item shows,
/// whenever that changes, and carries out the helper's requests.
///
/// The arguments of the constructor are borrowed and must outlive it. Main thread only.
class Exchange final {
public:
    struct Handlers {
        platform::Callback<void()> openQuor; ///< bring the application to the front
        /// Quit the application; the helper has already been asked to quit.
        platform::Callback<void()> quitQuor;
        platform::Callback<void()> notStored; ///< a change could not be written to disk
    };

    Exchange(Tracker& tracker, const platform::Clock& clock, platform::DistributedNotificationCenter& center,
        MenuTexts texts, Handlers handlers);
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    /// Discards an action that the helper wrote before this run, starts to observe the helper's
    /// notifications, and publishes. Call it once.
    void begin();

    /// Writes the status record, and the menu's rows if the helper has requested them, and notifies the
    /// helper. Publishes again when the passage of time changes what is shown.
    void publish();

    /// Writes the settings, then does the same as `publish`.
    void publishSettings();

    /// Asks the helper to open its menu, or to close it if it is open.
    void openMenu();
    /// Asks the helper to quit.
    void killHelper();

    [[nodiscard]] const QString& helperBundleID() const { return bridge_.helperItemBundleID; }

private:
    using Action = GroupStorage::Action;

    void handleUpdate();
    void handle(const Action::StopTimer& request);
    void handle(const Action::AdjustTimer& request);
    void handle(const Action::StartTimer& request);
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
    bool rowsAreOnShow_ = false; ///< the helper's menu may be open and show our rows
    platform::DistributedNotificationCenter::ObserverToken observer_{};
};

} // namespace quor::peer
