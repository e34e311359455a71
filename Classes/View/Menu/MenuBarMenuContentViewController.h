// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace quor::platform {
class Clock;
class WindowServer;
} // namespace quor::platform

namespace quor::helper {

class MenuBarCustomMenu;
class MenuWindow;

/// The content of the menu's window: the list of rows on the background of a menu. The window always has the
/// size of the list. Main thread only.
class MenuBarMenuContentViewController final : public QObject {
    Q_OBJECT

public:
    /// Puts its view into the window, which owns this object and the view. The other arguments must outlive
    /// the window.
    MenuBarMenuContentViewController(
        MenuWindow& window, platform::WindowServer& windowServer, const platform::Clock& clock);

    [[nodiscard]] MenuBarCustomMenu& customMenu() const { return *customMenu_; }

    /// Cleans up the list, which must not be used any more.
    void viewWillDisappear();

    /// Closes the window: what Escape does in a menu, wherever the keyboard is in it.
    void cancelOperation();

private:
    MenuWindow& window_;
    MenuBarCustomMenu* customMenu_; ///< owned by the window
};

} // namespace quor::helper
