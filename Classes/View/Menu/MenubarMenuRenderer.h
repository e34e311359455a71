// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/Workspace.h"
#include "ToolKit_macOS/EventMonitor.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace quor::platform {
class StatusItem;
}

namespace quor::helper {

class MenuBarCustomMenu;
class MenuSession;
class MenuWindow;

/// The menu of the status item. A press on the item requests rows, the rows open a window below the item,
/// and what the user chooses there leaves through the callbacks, which the owner sets.
///
/// The item's button is highlighted from the request on, and later while the window has the keyboard. A
/// second press, Escape and a choice close the window, and the application that had the keyboard before gets
/// it back. A press elsewhere closes the window too, and the keyboard goes where the user pressed. Keys
/// that are typed between the request and the window go to the search field. Main thread only.
class MenubarMenuRenderer final : public QObject {
    Q_OBJECT

public:
    /// Borrows both, which must outlive the renderer.
    MenubarMenuRenderer(platform::StatusItem& statusItem, const platform::PlatformServices& services);
    ~MenubarMenuRenderer() override; ///< Closes the menu. Activates no other application.

    /// Must lead to `showEntries` with the rows for this search term, as soon as they are there.
    platform::Callback<void(const QString& searchTerm)> requestMenuEntries;
    /// The timer is to be stopped `delta` seconds from now; negative is the past.
    platform::Callback<void(const QString& taskID, double delta)> stopTimer;
    /// The start of the timer is to be moved by `delta` seconds.
    platform::Callback<void(const QString& taskID, double delta)> adjustTimer;
    platform::Callback<void(const QString& taskID)> startTimer;
    /// The main application is to be shown. Must close the menu.
    platform::Callback<void()> openQuorHandler;
    platform::Callback<void()> quitQuorHandler;

    /// The window of the menu; null while it is closed.
    [[nodiscard]] MenuWindow* customWindow() const;

    /// Closes the open menu, else requests the rows that open it. `event` is the press on the item that
    /// does so; null without one.
    void toggle(const platform::InputEvent* event = nullptr);

    /// Opens the menu with these rows, also without a request, or shows them in the open menu.
    void showEntries(std::vector<MenuEntry> entries);

    /// Leaves the keyboard where it is when the open menu closes.
    void forgetPreviousActiveApp();

    /// Closes the menu, or cancels the request. Has no effect otherwise.
    void closeWindow();

private:
    [[nodiscard]] bool isPressOnItem(const platform::InputEvent& event) const;
    [[nodiscard]] std::optional<platform::RunningApplication> activeApp();
    [[nodiscard]] MenuSession& session();
    void connectList(MenuBarCustomMenu& list);
    void perform(const MenuEntry::Entry::Action& action);

    platform::StatusItem& statusItem_;
    platform::PlatformServices services_;
    toolkit::EventMonitor localEventMonitor_;
    std::unique_ptr<MenuSession> session_; ///< null while the menu is closed and no rows are awaited
    std::optional<platform::RunningApplication> lastActiveApp_; ///< at the last request
    platform::WorkItem justLostKeyboard_; ///< pending while the press that has closed the menu may follow
};

} // namespace quor::helper
