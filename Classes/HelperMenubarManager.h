// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Platform/Services/DistributedNotificationCenter.h"
#include "Platform/Services/PlatformServices.h"

#include <QObject>

#include <memory>
#include <optional>

namespace quor::platform {
class StatusItem;
}

namespace quor::helper {

class MenubarMenuRenderer;
class MenubarStatusItemRenderer;

/// Connects the main application with the status item and its menu. For each notification from the main
/// application it reads the suite and updates the item or the menu; each action of the user it writes to the
/// suite, and notifies the main application.
///
/// Main thread only.
class HelperMenubarManager final : public QObject {
    Q_OBJECT

public:
    /// Registers for notifications, clears an action that is left from an earlier run, asks the main
    /// application to publish its data, and shows the status item, which is empty until then. The services
    /// must outlive the manager.
    explicit HelperMenubarManager(const platform::PlatformServices& services);
    ~HelperMenubarManager() override;

    /// Creates the status item and its two renderers, or removes them. Has no effect if that is the case
    /// already.
    void showStatusItem(bool show);

    /// Reads the pending action, performs and clears it if it is for the helper, and refreshes.
    void handleUpdate();

    /// Reads the display settings and the data of the status item, and renders them.
    void refresh();

    /// Ends the registration for notifications.
    void removeObserver();

    /// Both are null while the status item is not shown.
    [[nodiscard]] MenubarMenuRenderer* menubarMenuRenderer() const { return menubarMenuRenderer_.get(); }
    [[nodiscard]] platform::StatusItem* statusItem() const { return statusItem_.get(); }

private:
    void setUpLogging() const;
    void connectMenu();
    void closeMenu();
    void requestMenuEntries(const QString& searchTerm);
    void send(const GroupStorage::Action& action) const;

    platform::PlatformServices services_;
    InterAppCommBridge interAppCommBridge_;
    std::optional<platform::DistributedNotificationCenter::ObserverToken> notificationObserver_;
    std::unique_ptr<platform::StatusItem> statusItem_;
    std::unique_ptr<MenubarStatusItemRenderer> statusItemRenderer_;
    std::unique_ptr<MenubarMenuRenderer> menubarMenuRenderer_;
};

} // namespace quor::helper
