// SPDX-License-Identifier: MIT
#include "View/Menu/MenuSession.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Services/Application.h"
#include "Platform/Services/StatusItem.h"
#include "Platform/Services/WindowServer.h"
#include "Platform/Views/StatusBarButton.h"
#include "View/Menu/MenuBarMenuContentViewController.h"
#include "View/Menu/MenuPlacement.h"
#include "View/Menu/MenuWindow.h"
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include <QApplication>

#include <utility>

namespace quor::helper {

MenuSession::MenuSession(platform::StatusItem& statusItem, const platform::PlatformServices& services)
    : statusItem_(statusItem)
    , services_(services)
    , eventFrame_(MenuAnchor::frameOf(statusItem.button()))
    , anchor_(statusItem.button())
    , keyCatcher_(services.windowServer)
    , globalEventMonitor_(services.eventMonitors, platform::mouseDownMask)
{
    statusItem_.button().highlight(true);
    connect(&anchor_, &MenuAnchor::screensChanged, this, &MenuSession::screensDidChange);
    connect(&anchor_, &MenuAnchor::moved, this, &MenuSession::itemDidMove);
    keyCatcher_.escapePressed = [this] { ended(End::closed); };
    keyCatcher_.limitReached = [this] {
        if (window_)
            handOverKeys();
        else
            keyCatcher_.keepTextOnly();
    };
}

MenuSession::~MenuSession()
{
    if (window_) {
        disconnect(window_.get(), nullptr, this, nullptr);
        window_->placement = nullptr;
        // First, so that the window manager need not choose a window for the keyboard.
        if (previousActiveApp_)
            services_.workspace.activate(*previousActiveApp_);
        window_->close();
        window_.release()->deleteLater(); // it may be handling the event that ends the session
    }
    statusItem_.button().highlight(false);
}

void MenuSession::awaitRows(
    const QRectF& eventFrame, const std::optional<platform::RunningApplication>& previousActiveApp)
{
    eventFrame_ = eventFrame;
    previousActiveApp_ = previousActiveApp;
    monitorPressesElsewhere();
    keyCatcher_.start(*statusItem_.button().window());
}

void MenuSession::showEntries(std::vector<MenuEntry> entries)
{
    if (!MenuAnchor::screenOf(statusItem_.button()))
        return ended(End::closed);
    if (!window_)
        return open(std::move(entries));
    auto& list = content_->customMenu();
    list.dataList = std::move(entries);
    list.reload();
    window_->place();
}

void MenuSession::open(std::vector<MenuEntry> entries)
{
    createWindow();
    auto& list = content_->customMenu();
    listCreated(list);
    list.dataList = std::move(entries);
    list.reload();
    services_.windowServer.prepareMenuWindow(*window_);
    monitorPressesElsewhere();
    window_->show();
    services_.application.activate(*window_); // may hand over keys that end the session
}

void MenuSession::createWindow()
{
    window_ = std::make_unique<MenuWindow>();
    if (auto* screen = MenuAnchor::screenOf(statusItem_.button()))
        window_->setScreen(screen);
    window_->placement = [this](const QSize& size) {
        const auto* screen = MenuAnchor::screenOf(statusItem_.button());
        return menuPosition(
            eventFrame_, size, screen ? std::optional(platform::Screen::fromQScreen(*screen)) : std::nullopt);
    };
    content_ = new MenuBarMenuContentViewController(*window_, services_.windowServer, services_.clock);
    connect(window_.get(), &MenuWindow::willClose, this, [this] { ended(End::closed); });
    connect(window_.get(), &MenuWindow::didBecomeKey, this, &MenuSession::windowDidBecomeKey);
    connect(window_.get(), &MenuWindow::didResignKey, this, &MenuSession::windowDidResignKey);
}

void MenuSession::monitorPressesElsewhere()
{
    globalEventMonitor_.stop();
    globalEventMonitor_.startGlobal([this](const platform::InputEvent& event) { pressedElsewhere(event); });
}

void MenuSession::pressedElsewhere(const platform::InputEvent& event)
{
    if (!window_) {
        // The user has turned to another application. The rows still open the menu when they arrive.
        globalEventMonitor_.stop();
        keyCatcher_.drop();
        forgetPreviousActiveApp();
        return;
    }
    const auto& list = content_->customMenu();
    if (QRectF(list.rect()).contains(list.mapFromGlobal(event.screenLocation)))
        return;
    forgetPreviousActiveApp();
    ended(End::closed);
}

void MenuSession::itemDidMove()
{
    eventFrame_ = MenuAnchor::frameOf(statusItem_.button());
    if (!window_)
        return;
    if (MenuAnchor::screenOf(statusItem_.button()))
        window_->place();
    else
        ended(End::closed);
}

void MenuSession::screensDidChange()
{
    auto* screen = MenuAnchor::screenOf(statusItem_.button());
    if (!screen || !window_)
        return;
    eventFrame_ = MenuAnchor::frameOf(statusItem_.button());
    window_->setScreen(screen);
    content_->customMenu().resizeToFit();
}

void MenuSession::windowDidBecomeKey()
{
    statusItem_.button().highlight(true);
    handOverKeys();
}

void MenuSession::handOverKeys()
{
    auto* focused = window_->focusWidget(); // the search field, unless the rows contain none
    keyCatcher_.handOver(focused ? *focused : content_->customMenu().searchView());
}

void MenuSession::windowDidResignKey()
{
    statusItem_.button().highlight(false);
    if (!services_.windowServer.missesPresses())
        return;
    // Later, since the window may get the keyboard back at once, or have lost it to its own pop-up menu.
    platform::MainQueue::async(platform::whileAlive(*this, [this] {
        if (window_->isActiveWindow() || QApplication::activePopupWidget())
            return;
        forgetPreviousActiveApp();
        ended(End::lostKeyboard);
    }));
}

} // namespace quor::helper
