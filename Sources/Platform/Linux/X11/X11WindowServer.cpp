// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11/X11WindowServer.h"

#include "Platform/Lifetime/Callback.h"
#include "Platform/Linux/X11/X11Connection.h"
#include "Platform/Linux/X11/X11Focus.h"
#include "Platform/Linux/X11/X11Window.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#include <array>
#include <unordered_map>
#include <utility>

#include <xcb/xfixes.h>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

bool isWaylandSession()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// A compositor owns this selection of its screen. Qt supports a single X screen.
xcb_atom_t compositorSelection(xcb_connection_t* connection)
{
    return x11Atom(connection, "_NET_WM_CM_S0");
}

} // namespace

X11WindowServer::~X11WindowServer()
{
    auto* connection = watcher_ ? x11Connection() : nullptr;
    if (connection)
        xcb_destroy_window(connection, watcher_);
}

bool X11WindowServer::isCompositing()
{
    auto* connection = x11Connection();
    if (!connection)
        return QGuiApplication::platformName().startsWith("wayland"_L1);
    const auto cookie = xcb_get_selection_owner(connection, compositorSelection(connection));
    const auto reply = x11Reply(xcb_get_selection_owner_reply(connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

Subscription X11WindowServer::observeCompositing(std::function<void()> changed)
{
    watchCompositor();
    const auto connection = connect(this, &X11WindowServer::compositingChanged, this,
        [changed = Callback<void()>(std::move(changed))] { changed(); });
    return Subscription([connection] { disconnect(connection); });
}

void X11WindowServer::watchCompositor()
{
    auto* connection = x11Connection();
    if (!connection || watcher_)
        return;
    const auto* extension = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (!extension || !extension->present)
        return;
    firstEvent_ = extension->first_event;
    selection_ = compositorSelection(connection);
    // A window of its own, since a selection has one registration for each window, and Qt uses the root
    // window.
    watcher_ = xcb_generate_id(connection);
    xcb_create_window(connection, 0, watcher_, x11Root(connection), -1, -1, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_xfixes_select_selection_input(connection, watcher_, selection_,
        XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool X11WindowServer::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7f) != firstEvent_ + XCB_XFIXES_SELECTION_NOTIFY)
        return false;
    const auto* change = static_cast<xcb_xfixes_selection_notify_event_t*>(message);
    if (change->window != watcher_ || change->selection != selection_)
        return false;
    Q_EMIT compositingChanged();
    return true;
}

void X11WindowServer::prepareMenuWindow(QWidget& window)
{
    const WId id = window.winId();
    forgetContentOnResize(id);
    setOnAllDesktops(id);
    setOutOfWindowLists(id);
}

void X11WindowServer::setShape(QWidget& window, const QRegion& shape)
{
    if (!setWindowShape(window.internalWinId(), shape))
        WindowServer::setShape(window, shape);
}

bool X11WindowServer::grabKeyboard(QWindow& window)
{
    return x11Connection() && window.isVisible() && window.setKeyboardGrabEnabled(true);
}

void X11WindowServer::releaseKeyboard(QWindow& window)
{
    auto* connection = x11Connection();
    if (!connection)
        return;
    window.setKeyboardGrabEnabled(false);
    xcb_flush(connection); // now, as the caller may block before the event loop flushes
}

std::vector<QWindow*> X11WindowServer::orderedWindows()
{
    auto* connection = x11Connection();
    if (!connection)
        return {};
    std::unordered_map<WId, QWindow*> ours;
    for (QWindow* window : QGuiApplication::topLevelWindows())
        if (window->isVisible() && window->visibility() != QWindow::Minimized)
            ours.emplace(window->winId(), window);
    std::vector<QWindow*> ordered;
    for (const xcb_window_t window : stackedWindows(connection))
        if (const auto found = ours.find(window); found != ours.end())
            ordered.push_back(found->second);
    return ordered;
}

bool X11WindowServer::missesPresses() const
{
    return isWaylandSession();
}

} // namespace quor::platform
