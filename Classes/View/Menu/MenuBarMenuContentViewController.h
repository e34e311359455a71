// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

namespace quor::platform {
class Clock;
class WindowServer;
} // namespace quor::platform

namespace quor::helper {

class MenuBarCustomMenu;
class MenuWindow;

/// What the menu's window holds: the list of rows on a ground that looks like a menu's.
///
/// Creating it puts its view into the window, which owns both from then on and is as large as the list.
/// Main thread only.
class MenuBarMenuContentViewController final : public QObject {
    Q_OBJECT

public:
    MenuBarMenuContentViewController(
        MenuWindow& window, platform::WindowServer& windowServer, const platform::Clock& clock);

    [[nodiscard]] MenuBarCustomMenu& customMenu() const { return *customMenu_; }

    /// The list lets go of everything; it is not shown again.
    void viewWillDisappear();

    /// What Escape does where nobody else wants it: closes the window.
    void cancelOperation();

private:
    MenuWindow& window_;
    QPointer<MenuBarCustomMenu> customMenu_;
};

} // namespace quor::helper
