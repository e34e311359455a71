// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/Workspace.h"
#include "ToolKit_macOS/EventMonitor.h"
#include "View/Menu/MenuAnchor.h"
#include "View/Menu/MenuKeyCatcher.h"

#include <QObject>
#include <QRectF>

#include <memory>
#include <optional>
#include <vector>

namespace quor::platform {
class StatusBarButton;
class StatusItem;
} // namespace quor::platform

namespace quor::helper {

class MenuBarCustomMenu;
class MenuBarMenuContentViewController;
class MenuWindow;

/// One use of the status item's menu. It begins when the user asks for the menu, or when rows arrive without
/// a request; it opens a window as soon as there are rows, and it ends when the menu closes.
///
/// The session owns all that exists only meanwhile: the highlight of the item's button, the window, the
/// monitor of presses elsewhere, the typed keys that wait for the window, and the application that gets the
/// keyboard back. Its destruction closes the window and leaves nothing behind. Main thread only.
class MenuSession final : public QObject {
    Q_OBJECT

public:
    enum class End {
        closed, ///< by the user, by the window manager, or because the item is not visible any more
        /// The window lost the keyboard. Reported only on desktops where presses in other applications cannot
        /// be observed (see `WindowServer::missesPresses`).
        lostKeyboard,
    };

    /// Borrows both, which must outlive the session.
    MenuSession(platform::StatusItem& statusItem, const platform::PlatformServices& services);
    /// If the window is open, closes it and gives the keyboard back to the application that had it when the
    /// user asked for the menu (see `forgetPreviousActiveApp`).
    ~MenuSession() override;

    /// The session is over. The owner must destroy it, within this call or soon after. Every function that
    /// may call this says so; otherwise it is called from the event loop.
    platform::Callback<void(End end)> ended;
    /// The list was created, and is not shown yet. The owner sets the handlers of the list, and must not
    /// destroy the session within this call.
    platform::Callback<void(MenuBarCustomMenu& list)> listCreated;

    /// The user has asked for the menu, for the first time or again while rows are awaited. Must not be
    /// called while the window is open. The window will hang below `eventFrame` (screen coordinates in
    /// device-independent pixels); without this call it hangs below the item's button.
    ///
    /// For up to two seconds, the session keeps all typed keys for the search field. If the window is not
    /// open by then, other applications get the keys again, and of the kept keys only the text stays. Escape
    /// ends the session.
    ///
    /// `previousActiveApp` gets the keyboard back when the session ends; with `nullopt`, no application does.
    /// If the user presses in another application before the window is open, the session drops the kept keys
    /// and `previousActiveApp`.
    void awaitRows(
        const QRectF& eventFrame, const std::optional<platform::RunningApplication>& previousActiveApp);

    /// Opens the window with these rows, or shows them in the open window. The first call calls
    /// `listCreated`, before the list is shown. May call `ended` before it returns: if the item is not
    /// visible, or if the kept keys end the session.
    void showEntries(std::vector<MenuEntry> entries);

    /// Leaves the keyboard where it is when the session ends.
    void forgetPreviousActiveApp() { previousActiveApp_.reset(); }

    /// Null while rows are awaited.
    [[nodiscard]] MenuWindow* window() const { return window_.get(); }

private:
    void open(std::vector<MenuEntry> entries);
    void createWindow();
    void monitorPressesElsewhere();
    void pressedElsewhere(const platform::InputEvent& event);
    void itemDidMove();
    void screensDidChange();
    void windowDidBecomeKey();
    void windowDidResignKey();
    void handOverKeys();

    platform::StatusItem& statusItem_;
    platform::PlatformServices services_;
    QRectF eventFrame_;
    std::optional<platform::RunningApplication> previousActiveApp_;
    MenuAnchor anchor_;
    MenuKeyCatcher keyCatcher_;
    toolkit::EventMonitor globalEventMonitor_;
    std::unique_ptr<MenuWindow> window_;
    MenuBarMenuContentViewController* content_ = nullptr; ///< owned by the window
};

} // namespace quor::helper
