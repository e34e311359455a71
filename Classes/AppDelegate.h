// SPDX-License-Identifier: MIT
#pragma once

#include "HelperMenubarManager.h"
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Platform/Services/DistributedNotificationCenter.h"
#include "Platform/Services/PlatformServices.h"

#include <QObject>

#include <optional>

namespace quor::helper {

/// The helper as an application: owns the manager, and ends the process when the main application asks for
/// it. Main thread only.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// The services must outlive the delegate.
    explicit AppDelegate(const platform::PlatformServices& services);
    ~AppDelegate() override;

    /// Registers for the notification by which the main application ends the helper.
    void applicationDidFinishLaunching();
    /// Has no effect, since the helper stores nothing that outlives the process.
    void applicationWillTerminate() const { }
    /// True, as there is no stored state that others could manipulate.
    [[nodiscard]] bool applicationSupportsSecureRestorableState() const { return true; }

    /// Like the rows of the menu that show and quit the main application.
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
