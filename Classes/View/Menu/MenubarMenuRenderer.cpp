// SPDX-License-Identifier: MIT
#include "View/Menu/MenubarMenuRenderer.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Services/StatusItem.h"
#include "Platform/Views/StatusBarButton.h"
#include "View/Menu/MenuSession.h"
#include "View/Menu/MenuWindow.h"
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"
#include "View/Overloaded.h"

#include <QGuiApplication>
#include <QThread>
#include <QWindow>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace quor::helper {

namespace {

constexpr double secondsPerMinute = 60;
// The longest time between losing the keyboard to a press and the event of the press.
constexpr auto pressFollows = 200ms;

} // namespace

MenubarMenuRenderer::MenubarMenuRenderer(
    platform::StatusItem& statusItem, const platform::PlatformServices& services)
    : statusItem_(statusItem)
    , services_(services)
    , localEventMonitor_(services.eventMonitors, platform::mouseDownMask)
{
    // The monitor swallows presses with the pointer. Those of assistive tools arrive as clicks.
    connect(&statusItem_.button(), &QAbstractButton::clicked, this, [this] { toggle(); });
    localEventMonitor_.startLocal(
        [this](const platform::InputEvent& event) -> std::optional<platform::InputEvent> {
            if (!isPressOnItem(event))
                return event;
            toggle(&event);
            return std::nullopt;
        });
}

MenubarMenuRenderer::~MenubarMenuRenderer()
{
    const QPointer window(customWindow());
    forgetPreviousActiveApp();
    closeWindow();
    if (QThread::currentThread()->loopLevel() == 0)
        delete window; // without an event loop, a deferred deletion would not happen
}

bool MenubarMenuRenderer::isPressOnItem(const platform::InputEvent& event) const
{
    // With the desktop's key held, the press is for moving the item.
    return !event.modifiers.testFlag(Qt::MetaModifier)
        && event.window == statusItem_.button().window()->windowHandle();
}

MenuWindow* MenubarMenuRenderer::customWindow() const
{
    return session_ ? session_->window() : nullptr;
}

MenuSession& MenubarMenuRenderer::session()
{
    if (session_)
        return *session_;
    session_ = std::make_unique<MenuSession>(statusItem_, services_);
    session_->listCreated = [this](MenuBarCustomMenu& list) { connectList(list); };
    session_->ended = [this](MenuSession::End end) {
        if (end == MenuSession::End::lostKeyboard)
            justLostKeyboard_ = platform::MainQueue::after(pressFollows, [] {});
        closeWindow();
    };
    return *session_;
}

void MenubarMenuRenderer::toggle(const platform::InputEvent* event)
{
    if (customWindow()) {
        closeWindow();
        return;
    }
    if (event && justLostKeyboard_.isPending())
        return; // this press has closed the menu
    session().awaitRows(event && event->window ? QRectF(event->window->frameGeometry())
                                               : MenuAnchor::frameOf(statusItem_.button()),
        activeApp());
    requestMenuEntries(QString());
}

std::optional<platform::RunningApplication> MenubarMenuRenderer::activeApp()
{
    const auto app = services_.workspace.frontmostApplication();
    const auto isItsWindow
        = [&](const QWindow* window) { return window->handle() && window->winId() == app->window; };
    // Soon after the menu has closed, one of our own windows may still have the keyboard.
    if (!app || !std::ranges::any_of(QGuiApplication::topLevelWindows(), isItsWindow))
        lastActiveApp_ = app;
    return lastActiveApp_;
}

void MenubarMenuRenderer::showEntries(std::vector<MenuEntry> entries)
{
    session().showEntries(std::move(entries));
}

void MenubarMenuRenderer::forgetPreviousActiveApp()
{
    if (session_)
        session_->forgetPreviousActiveApp();
}

void MenubarMenuRenderer::closeWindow()
{
    session_.reset();
}

void MenubarMenuRenderer::connectList(MenuBarCustomMenu& list)
{
    using platform::whileAlive;
    list.searchTermChangedHandler
        = whileAlive(*this, [this](const QString& term) { requestMenuEntries(term); });
    list.entryClicked = whileAlive(*this, [this](const MenuEntry& row) {
        if (const auto* entry = std::get_if<MenuEntry::Entry>(&row.value))
            perform(entry->action);
    });
    list.adjustedStopHandler = whileAlive(*this, [this](const QString& taskID, int minutes) {
        const QPointer self(this);
        stopTimer(taskID, minutes * secondsPerMinute);
        if (self)
            closeWindow();
    });
    list.adjustStartHandler = whileAlive(*this,
        [this](const QString& taskID, int minutes) { adjustTimer(taskID, minutes * secondsPerMinute); });
}

void MenubarMenuRenderer::perform(const MenuEntry::Entry::Action& action)
{
    using Action = MenuEntry::Entry::Action;
    bool closes = true;
    const QPointer self(this);
    const Overloaded send{
        [this](const Action::Stop& stop) { stopTimer(stop.taskID, 0); },
        [this](const Action::Start& start) { startTimer(start.taskID); },
        [&](const Action::Show&) {
            closes = false; // the handler closes the menu itself, and keeps the keyboard from going back
            openQuorHandler();
        },
        [this](const Action::Quit&) { quitQuorHandler(); },
        [&](const Action::None&) { closes = false; },
    };
    std::visit(send, action.value);
    if (closes && self)
        closeWindow();
}

} // namespace quor::helper
