// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11/X11Focus.h"

#include "Platform/Linux/X11/X11Connection.h"

#include <QString>
#include <QSysInfo>

#include <algorithm>
#include <vector>

namespace quor::platform {

namespace {

// A window manager that was killed leaves its properties on the root window. The window that it names as its
// own, however, does not survive.
bool windowManagerSupports(xcb_connection_t* connection, std::string_view property)
{
    constexpr auto check = "_NET_SUPPORTING_WM_CHECK";
    const auto root = x11Root(connection);
    const auto named = x11Values(connection, root, check);
    if (named.empty() || x11Values(connection, named[0], check) != named)
        return false;
    const auto supported = x11Values(connection, root, "_NET_SUPPORTED");
    return std::ranges::find(supported, x11Atom(connection, property)) != supported.end();
}

bool windowManagerActivates(xcb_connection_t* connection)
{
    return windowManagerSupports(connection, "_NET_ACTIVE_WINDOW");
}

// From the bottom to the top.
std::vector<xcb_window_t> windowsOfDesktop(xcb_connection_t* connection)
{
    const auto cookie = xcb_query_tree(connection, x11Root(connection));
    const auto reply = x11Reply(xcb_query_tree_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    const auto* first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

std::optional<xcb_window_t> focusedWindow(xcb_connection_t* connection)
{
    const auto reply
        = x11Reply(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    const bool isWindow
        = reply && reply->focus != XCB_INPUT_FOCUS_NONE && reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT;
    return isWindow ? std::optional(reply->focus) : std::nullopt;
}

bool setFocus(xcb_connection_t* connection, xcb_window_t window)
{
    // When the window is unmapped, the focus returns to what the server has at its start: the pointer.
    const auto cookie
        = xcb_set_input_focus_checked(connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    const auto error = x11Reply(xcb_request_check(connection, cookie));
    return !error;
}

// Process numbers of another machine mean nothing here.
bool isOfThisMachine(xcb_connection_t* connection, xcb_window_t window)
{
    constexpr std::uint32_t longestName = 64; // in units of four bytes
    const auto cookie = xcb_get_property(
        connection, 0, window, XCB_ATOM_WM_CLIENT_MACHINE, XCB_GET_PROPERTY_TYPE_ANY, 0, longestName);
    const auto reply = x11Reply(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->type == XCB_ATOM_NONE)
        return true;
    const QByteArrayView name(static_cast<const char*>(xcb_get_property_value(reply.get())),
        xcb_get_property_value_length(reply.get()));
    return QString::fromUtf8(name) == QSysInfo::machineHostName();
}

std::optional<xcb_window_t> parentOf(xcb_connection_t* connection, xcb_window_t window)
{
    const auto reply
        = x11Reply(xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    const bool hasParent = reply && reply->parent != XCB_WINDOW_NONE && reply->parent != reply->root;
    return hasParent ? std::optional(reply->parent) : std::nullopt;
}

} // namespace

std::optional<xcb_window_t> activeWindow(xcb_connection_t* connection)
{
    if (!windowManagerActivates(connection))
        return focusedWindow(connection);
    const auto active = x11Values(connection, x11Root(connection), "_NET_ACTIVE_WINDOW");
    return active.empty() || active[0] == XCB_WINDOW_NONE ? std::nullopt : std::optional(active[0]);
}

bool activateWindow(xcb_connection_t* connection, xcb_window_t window)
{
    const auto cookie = xcb_get_window_attributes(connection, window);
    const auto attributes = x11Reply(xcb_get_window_attributes_reply(connection, cookie, nullptr));
    if (!attributes)
        return false;
    if (!windowManagerActivates(connection))
        return attributes->map_state == XCB_MAP_STATE_VIEWABLE && setFocus(connection, window);
    // Window managers may refuse requests by applications while the user works elsewhere, but not requests by
    // the user, as pagers send them.
    constexpr std::uint32_t byUser = 2;
    x11AskWindowManager(connection, window, "_NET_ACTIVE_WINDOW", {byUser, XCB_CURRENT_TIME});
    return true;
}

std::optional<std::uint32_t> processOfWindow(xcb_connection_t* connection, xcb_window_t window)
{
    // The focus can be in a child of the window that has the property.
    for (std::optional each(window); each; each = parentOf(connection, *each)) {
        const auto process = x11Values(connection, *each, "_NET_WM_PID");
        if (!process.empty())
            return isOfThisMachine(connection, *each) ? std::optional(process[0]) : std::nullopt;
    }
    return std::nullopt;
}

std::vector<xcb_window_t> stackedWindows(xcb_connection_t* connection)
{
    constexpr auto stacking = "_NET_CLIENT_LIST_STACKING"; // from the bottom to the top
    auto windows = windowManagerSupports(connection, stacking)
        ? x11Values(connection, x11Root(connection), stacking)
        : windowsOfDesktop(connection);
    std::ranges::reverse(windows);
    return windows;
}

std::optional<xcb_window_t> windowOfProcess(xcb_connection_t* connection, std::uint32_t process)
{
    const auto windows = x11Values(connection, x11Root(connection), "_NET_CLIENT_LIST_STACKING");
    const auto found = std::find_if(windows.rbegin(), windows.rend(),
        [&](xcb_window_t each) { return processOfWindow(connection, each) == process; });
    return found == windows.rend() ? std::nullopt : std::optional(*found);
}

} // namespace quor::platform
