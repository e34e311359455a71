// SPDX-License-Identifier: MIT
#include "View/Menu/MenuKeyCatcher.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Services/WindowServer.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace quor::helper {

namespace {

constexpr auto limit = 2s;
// Grabbing fails while another client holds the keyboard, as the window manager does until the user releases
// the short cut that opens the menu.
constexpr auto grabInterval = 10ms;

bool isText(const QEvent& event)
{
    if (event.type() == QEvent::InputMethod)
        return true;
    const auto& key = static_cast<const QKeyEvent&>(event);
    const QString text = key.text();
    return key.key() == Qt::Key_Backspace
        || (!text.isEmpty() && text.front().isPrint()
            && !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)));
}

} // namespace

MenuKeyCatcher::MenuKeyCatcher(platform::WindowServer& windowServer)
    : windowServer_(windowServer)
{
    connect(&grabAgain_, &QTimer::timeout, this, &MenuKeyCatcher::grab);
}

MenuKeyCatcher::~MenuKeyCatcher()
{
    drop();
}

void MenuKeyCatcher::start(QWidget& window)
{
    limit_.cancel();
    limit_ = platform::MainQueue::after(limit, platform::whileAlive(*this, [this] { limitReached(); }));
    if (window_ == &window || !window.windowHandle())
        return;
    letGo();
    keys_.clear();
    window_ = &window;
    window.setAttribute(Qt::WA_InputMethodEnabled);
    window.installEventFilter(this);
    window.windowHandle()->installEventFilter(this);
    grab();
}

void MenuKeyCatcher::grab()
{
    auto* window = window_ ? window_->windowHandle() : nullptr;
    if (!window || windowServer_.grabKeyboard(*window))
        grabAgain_.stop();
    else if (!grabAgain_.isActive())
        grabAgain_.start(grabInterval);
}

void MenuKeyCatcher::letGo()
{
    grabAgain_.stop();
    auto* window = window_.data();
    if (!window)
        return;
    window_.clear();
    window->setAttribute(Qt::WA_InputMethodEnabled, false);
    window->removeEventFilter(this);
    if (auto* handle = window->windowHandle()) {
        handle->removeEventFilter(this);
        windowServer_.releaseKeyboard(*handle);
    }
}

void MenuKeyCatcher::handOver(QWidget& receiver)
{
    limit_.cancel();
    const QPointer self(this);
    const QPointer target(&receiver);
    for (const auto& key : std::exchange(keys_, {})) {
        if (self && target) // an earlier key may have closed the menu
            QCoreApplication::sendEvent(target, key.get());
    }
    if (self)
        letGo(); // last, so that keys which are typed now come after the kept ones
}

void MenuKeyCatcher::keepTextOnly()
{
    limit_.cancel();
    std::erase_if(keys_, [](const auto& key) { return !isText(*key); });
    letGo();
}

void MenuKeyCatcher::drop()
{
    limit_.cancel();
    keys_.clear();
    letGo();
}

bool MenuKeyCatcher::takesKey(QObject* watched, const QEvent& event)
{
    if (!window_)
        return false;
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
    return (isKey && watched == window_->windowHandle())
        || (event.type() == QEvent::InputMethod && watched == window_
            && !static_cast<const QInputMethodEvent&>(event).commitString().isEmpty());
}

bool MenuKeyCatcher::eventFilter(QObject* watched, QEvent* event)
{
    if (!takesKey(watched, *event))
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        drop();
        escapePressed();
    } else {
        keys_.emplace_back(event->clone());
    }
    return true;
}

} // namespace quor::helper
