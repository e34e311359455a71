// SPDX-License-Identifier: MIT
#pragma once

#include "HelperMenubarManager.h"
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Platform/Services/DistributedNotificationCenter.h"
#include "Platform/Services/PlatformServices.h"

#include <QObject>

#include <optional>

namespace quor::helper {

/// The helper as an application: owns the manager, and ends the process when the main application says
/// so. Borrows the services, which must outlive it. Main thread only.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    explicit AppDelegate(const platform::PlatformServices& services);
    ~AppDelegate() override;

    /// From here on the main application can end the helper.
    void applicationDidFinishLaunching();
    /// Nothing to save: what lasts is the main application's.
    void applicationWillTerminate() const { }
    /// For the same reason there is no state to restore that could be tampered with.
    [[nodiscard]] bool applicationSupportsSecureRestorableState() const { return true; }

    /// As if the user had chosen to show, or to quit, the main application in the menu.
    void openQuorClicked();
    void quitQuorClicked();

private:
    void killMyself();
    void removeObserver();

    platform::PlatformServices services_;
    InterAppCommBridge interAppCommBridge_;
    HelperMenubarManager helperMenubarManager_;
    std::optional<platform::DistributedNotificationCenter::ObserverToken> notificationObserver_;
};

} // namespace quor::helper
