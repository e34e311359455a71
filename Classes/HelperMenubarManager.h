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

/// The helper's middle: each notification of the main application becomes a read of the suite and a
/// drawing, each action of the user a write to the suite and a notification.
///
/// Creating it registers for notifications, drops an action that an earlier run left, asks the main
/// application to publish and shows the status item, empty as yet. Borrows the services, which must
/// outlive it. Main thread only.
class HelperMenubarManager final : public QObject {
    Q_OBJECT

public:
    explicit HelperMenubarManager(const platform::PlatformServices& services);
    ~HelperMenubarManager() override;

    /// Creates the status item and its two renderers, or removes them. Harmless where it is so already.
    void showStatusItem(bool show);

    /// Reads the pending action, carries out what is the helper's, and refreshes.
    void handleUpdate();

    /// Reads the display settings and the record, and renders them.
    void refresh();

    /// Hears no more notifications.
    void removeObserver();

    /// None while there is no status item.
    [[nodiscard]] MenubarMenuRenderer* menubarMenuRenderer() const { return menubarMenuRenderer_.get(); }
    [[nodiscard]] MenubarStatusItemRenderer* statusItemRenderer() const { return statusItemRenderer_.get(); }
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
