// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Services/EventMonitors.h"
#include "Platform/Services/PlatformServices.h"
#include "Platform/Services/Workspace.h"

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quor::platform {
class StatusItem;
}
namespace quor::toolkit {
class EventMonitor;
}

namespace quor::helper {

class MenuAnchor;
class MenuBarCustomMenu;
class MenuBarMenuContentViewController;
class MenuKeyCatcher;
class MenuWindow;

/// The status item's menu: a press on the item asks for its rows, the rows open a window under the item,
/// and what the user chooses there goes out through the closures, which the owner sets. An empty one does
/// nothing.
///
/// The button is highlighted from the request on, and while the window has the keyboard. A second press,
/// Escape and a choice close the window and give the keyboard back to the application that had it; with a
/// press elsewhere it stays where the user put it. Keys that are typed between the request and the window
/// go to its search field. Borrows the item and the services, which must outlive it. Main thread only.
class MenubarMenuRenderer final : public QObject {
    Q_OBJECT

public:
    MenubarMenuRenderer(platform::StatusItem& statusItem, const platform::PlatformServices& services);
    ~MenubarMenuRenderer() override; ///< Closes the menu; the keyboard is given to nobody.

    std::function<void(const QString& searchTerm)> requestMenuEntries;
    std::function<void(const QString& taskID, double delta)> stopTimer; ///< seconds, 0 for now
    std::function<void(const QString& taskID, double delta)> adjustTimer; ///< seconds
    std::function<void(const QString& taskID)> startTimer;
    std::function<void()> openQuorHandler;
    std::function<void()> quitQuorHandler;

    /// Where the menu hangs: the item on the screen, in device-independent pixels.
    [[nodiscard]] const QRectF& eventFrame() const { return eventFrame_; }

    /// None while the menu is closed.
    [[nodiscard]] MenuWindow* customWindow() const { return customWindow_.get(); }

    /// Closes the menu, or asks for rows, which then open it. With the press that does so, if any.
    void toggle(const platform::InputEvent* event = nullptr);

    /// Opens the menu on these rows, also if nobody asked for them, or has the open one show them.
    void showEntries(std::vector<MenuEntry> entries);

    /// Whoever had the keyboard before does not get it back as the menu closes.
    void forgetPreviousActiveApp();

    /// Harmless where the menu is not open.
    void closeWindow();

private:
    [[nodiscard]] bool isPressOnItem(const platform::InputEvent& event) const;
    void noteActiveApp();
    void catchKeys();
    void followItem();

    void open(std::vector<MenuEntry> entries);
    void listenToWindow();
    void connectList(MenuBarCustomMenu& list);
    void monitorPressesElsewhere();
    [[nodiscard]] MenuBarCustomMenu* customMenu() const;
    void place();
    void measureAnew();

    void entryClicked(const MenuEntry& row);
    void perform(const MenuEntry::Entry::Action& action);
    void detachAndClose();
    void closeByPressElsewhere();

    void windowWillClose();
    void windowDidBecomeKey();
    void windowDidResignKey();

    platform::StatusItem& statusItem_;
    platform::PlatformServices services_;
    std::optional<platform::RunningApplication> previousActiveApp_;
    std::optional<platform::RunningApplication>
        lastActiveApp_; ///< As noted last, whoever has the keyboard now.
    std::unique_ptr<toolkit::EventMonitor> localEventMonitor_;
    std::unique_ptr<toolkit::EventMonitor> globalEventMonitor_;
    QRectF eventFrame_;
    std::unique_ptr<MenuWindow> customWindow_;
    QPointer<MenuBarMenuContentViewController> content_; ///< The window's.
    std::unique_ptr<MenuAnchor> anchor_;
    std::unique_ptr<MenuKeyCatcher> keyCatcher_;
    platform::WorkItem
        justLostToPress_; ///< Pending while a press may follow that has closed the menu already.
};

} // namespace quor::helper
