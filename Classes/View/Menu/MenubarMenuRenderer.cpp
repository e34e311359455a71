// SPDX-License-Identifier: MIT
#include "View/Menu/MenubarMenuRenderer.h"

#include "Platform/Services/Application.h"
#include "Platform/Services/StatusItem.h"
#include "Platform/Services/WindowServer.h"
#include "Platform/Views/StatusBarButton.h"
#include "ToolKit_macOS/EventMonitor.h"
#include "View/Menu/MenuAnchor.h"
#include "View/Menu/MenuBarMenuContentViewController.h"
#include "View/Menu/MenuKeyCatcher.h"
#include "View/Menu/MenuPlacement.h"
#include "View/Menu/MenuWindow.h"
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include <QApplication>
#include <QThread>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace quor::helper {

namespace {

constexpr platform::EventMask presses = 10; // left and right
constexpr double secondsPerMinute = 60;
// Between losing the keyboard to a press and hearing of the press.
constexpr auto pressFollows = 200ms;

template <typename... Parameters, typename... Arguments>
void call(const std::function<void(Parameters...)>& closure, const Arguments&... arguments)
{
    if (const auto copy = closure) // which stays, whatever it does to its owner
        copy(arguments...);
}

} // namespace

MenubarMenuRenderer::MenubarMenuRenderer(
    platform::StatusItem& statusItem, const platform::PlatformServices& services)
    : statusItem_(statusItem)
    , services_(services)
    , localEventMonitor_(std::make_unique<toolkit::EventMonitor>(services.eventMonitors, presses))
{
    // Presses with the pointer come through the monitor, those of assistive tools this way.
    connect(&statusItem_.button(), &QAbstractButton::clicked, this, [this] { toggle(); });
    localEventMonitor_->startLocal(
        [self = QPointer(this)](const platform::InputEvent& event) -> std::optional<platform::InputEvent> {
            if (!self || !self->isPressOnItem(event))
                return event;
            self->toggle(&event);
            return std::nullopt;
        });
}

MenubarMenuRenderer::~MenubarMenuRenderer()
{
    const QPointer window(customWindow_.get());
    forgetPreviousActiveApp();
    closeWindow();
    if (QThread::currentThread()->loopLevel() == 0)
        delete window; // nobody will do it later
}

bool MenubarMenuRenderer::isPressOnItem(const platform::InputEvent& event) const
{
    // With the desktop's key held, the press is for moving the item.
    return !event.modifiers.testFlag(Qt::MetaModifier)
        && event.window == statusItem_.button().window()->windowHandle();
}

void MenubarMenuRenderer::toggle(const platform::InputEvent* event)
{
    if (customWindow_) {
        closeWindow();
        return;
    }
    if (event && justLostToPress_.isPending())
        return;
    auto& button = statusItem_.button();
    eventFrame_
        = event && event->window ? QRectF(event->window->frameGeometry()) : MenuAnchor::frameOf(button);
    noteActiveApp();
    button.highlight(true);
    followItem();
    catchKeys();
    call(requestMenuEntries, QString());
}

void MenubarMenuRenderer::noteActiveApp()
{
    auto app = services_.workspace.frontmostApplication();
    const auto isItsWindow
        = [&](const QWindow* window) { return window->handle() && window->winId() == app->window; };
    // Soon after closing, the keyboard may still be on its way back.
    if (app && std::ranges::any_of(QGuiApplication::topLevelWindows(), isItsWindow))
        app = lastActiveApp_;
    previousActiveApp_ = app;
    lastActiveApp_ = app;
}

void MenubarMenuRenderer::followItem()
{
    if (anchor_)
        return;
    anchor_ = std::make_unique<MenuAnchor>(statusItem_.button());
    connect(anchor_.get(), &MenuAnchor::screensChanged, this, &MenubarMenuRenderer::measureAnew);
    connect(anchor_.get(), &MenuAnchor::moved, this, [this] {
        eventFrame_ = MenuAnchor::frameOf(statusItem_.button());
        place();
    });
}

void MenubarMenuRenderer::catchKeys()
{
    if (!keyCatcher_) {
        keyCatcher_ = std::make_unique<MenuKeyCatcher>(services_.windowServer, services_.eventMonitors);
        keyCatcher_->escapePressed = [this] {
            statusItem_.button().highlight(false);
            closeWindow();
        };
        keyCatcher_->pressedElsewhere = [this] { forgetPreviousActiveApp(); };
        keyCatcher_->limitReached = [this] {
            if (customWindow_)
                windowDidBecomeKey();
            else
                keyCatcher_->keepTextOnly();
        };
    }
    keyCatcher_->start(*statusItem_.button().window());
}

void MenubarMenuRenderer::showEntries(std::vector<MenuEntry> entries)
{
    if (auto* list = customMenu()) {
        list->dataList = std::move(entries);
        list->reload();
    } else {
        open(std::move(entries));
    }
    place();
}

MenuBarCustomMenu* MenubarMenuRenderer::customMenu() const
{
    return customWindow_ && content_ ? &content_->customMenu() : nullptr;
}

void MenubarMenuRenderer::open(std::vector<MenuEntry> entries)
{
    auto& button = statusItem_.button();
    button.highlight(true);
    if (!anchor_) // nobody asked for these rows
        eventFrame_ = MenuAnchor::frameOf(button);
    followItem();

    customWindow_ = std::make_unique<MenuWindow>();
    auto& window = *customWindow_;
    if (auto* screen = MenuAnchor::screenOf(button))
        window.setScreen(screen);
    window.placement = [this](const QSize& size) {
        const auto* screen = MenuAnchor::screenOf(statusItem_.button());
        return menuPosition(
            eventFrame_, size, screen ? std::optional(platform::Screen::fromQScreen(*screen)) : std::nullopt);
    };
    content_ = new MenuBarMenuContentViewController(window, services_.windowServer, services_.clock);
    auto& list = content_->customMenu();
    list.dataList = std::move(entries);
    list.reload();
    services_.windowServer.prepareMenuWindow(window);
    listenToWindow();
    monitorPressesElsewhere();
    connectList(list);
    window.show();
    services_.application.activate(window);
}

void MenubarMenuRenderer::listenToWindow()
{
    auto* window = customWindow_.get();
    connect(window, &MenuWindow::willClose, this, &MenubarMenuRenderer::windowWillClose);
    connect(window, &MenuWindow::didBecomeKey, this, &MenubarMenuRenderer::windowDidBecomeKey);
    connect(window, &MenuWindow::didResignKey, this, &MenubarMenuRenderer::windowDidResignKey);
}

void MenubarMenuRenderer::monitorPressesElsewhere()
{
    globalEventMonitor_ = std::make_unique<toolkit::EventMonitor>(services_.eventMonitors, presses);
    globalEventMonitor_->startGlobal([self = QPointer(this)](const platform::InputEvent& event) {
        const auto* list = self ? self->customMenu() : nullptr;
        if (list && !QRectF(list->rect()).contains(list->mapFromGlobal(event.screenLocation)))
            self->closeByPressElsewhere();
    });
}

void MenubarMenuRenderer::connectList(MenuBarCustomMenu& list)
{
    const QPointer self(this);
    list.searchTermChangedHandler = [self](const QString& term) {
        if (self)
            call(self->requestMenuEntries, term);
    };
    list.entryClicked = [self](const MenuEntry& row) {
        if (self)
            self->entryClicked(row);
    };
    list.adjustedStopHandler = [self](const QString& taskID, int minutes) {
        if (!self)
            return;
        call(self->stopTimer, taskID, minutes * secondsPerMinute);
        if (self)
            self->detachAndClose();
    };
    list.adjustStartHandler = [self](const QString& taskID, int minutes) {
        if (self)
            call(self->adjustTimer, taskID, minutes * secondsPerMinute);
    };
}

void MenubarMenuRenderer::place()
{
    if (!customWindow_)
        return;
    if (MenuAnchor::screenOf(statusItem_.button()))
        customWindow_->place();
    else
        closeWindow();
}

void MenubarMenuRenderer::measureAnew()
{
    auto* screen = MenuAnchor::screenOf(statusItem_.button());
    auto* list = customMenu();
    if (!screen || !list)
        return;
    eventFrame_ = MenuAnchor::frameOf(statusItem_.button());
    customWindow_->setScreen(screen);
    list->resizeToFit();
}

void MenubarMenuRenderer::entryClicked(const MenuEntry& row)
{
    if (const auto* entry = std::get_if<MenuEntry::Entry>(&row.value))
        perform(MenuEntry::Entry::Action(entry->action)); // a copy: closing may take the row away
}

void MenubarMenuRenderer::perform(const MenuEntry::Entry::Action& action)
{
    using Action = MenuEntry::Entry::Action;
    const QPointer self(this);
    if (const auto* stop = std::get_if<Action::Stop>(&action.value))
        call(stopTimer, stop->taskID, 0.0);
    else if (const auto* start = std::get_if<Action::Start>(&action.value))
        call(startTimer, start->taskID);
    else if (std::holds_alternative<Action::Quit>(action.value))
        call(quitQuorHandler);
    else if (std::holds_alternative<Action::Show>(action.value))
        return call(openQuorHandler); // which closes the window itself
    else
        return;
    if (self)
        detachAndClose();
}

void MenubarMenuRenderer::detachAndClose()
{
    if (auto* list = customMenu()) {
        list->resizedHandler = nullptr;
        list->entryClicked = nullptr;
        list->adjustStartHandler = nullptr;
        list->adjustedStopHandler = nullptr;
        list->searchTermChangedHandler = nullptr;
    }
    closeWindow();
}

void MenubarMenuRenderer::closeByPressElsewhere()
{
    forgetPreviousActiveApp();
    closeWindow();
}

void MenubarMenuRenderer::forgetPreviousActiveApp()
{
    previousActiveApp_.reset();
}

void MenubarMenuRenderer::closeWindow()
{
    if (customWindow_)
        customWindow_->close();
}

void MenubarMenuRenderer::windowWillClose()
{
    // First, so that the window manager need not look for somebody to have the keyboard.
    if (const auto app = std::exchange(previousActiveApp_, std::nullopt))
        services_.workspace.activate(*app);
    auto window = std::exchange(customWindow_, nullptr);
    disconnect(window.get(), nullptr, this, nullptr);
    window.release()->deleteLater(); // it may be at work with the key or press that closes it
    globalEventMonitor_.reset();
    anchor_.reset();
    if (keyCatcher_)
        keyCatcher_->drop();
    statusItem_.button().highlight(false);
}

void MenubarMenuRenderer::windowDidBecomeKey()
{
    statusItem_.button().highlight(true);
    auto* list = customMenu();
    if (!list || !keyCatcher_ || !keyCatcher_->holdsKeys())
        return;
    auto* focused = customWindow_->focusWidget(); // the search field, where there is one
    keyCatcher_->handOver(focused ? *focused : list->searchView());
}

void MenubarMenuRenderer::windowDidResignKey()
{
    statusItem_.button().highlight(false);
    if (!services_.windowServer.missesPresses())
        return;
    // Later, as it may get the keyboard back at once, or have lost it to a pop-up of its own.
    platform::MainQueue::async([self = QPointer(this), window = QPointer(customWindow_.get())] {
        if (!self || !window || window->isActiveWindow() || QApplication::activePopupWidget())
            return;
        self->justLostToPress_ = platform::MainQueue::after(pressFollows, [] {});
        self->closeByPressElsewhere();
    });
}

} // namespace quor::helper
