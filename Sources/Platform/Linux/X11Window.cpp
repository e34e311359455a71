// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11Window.h"

#include <QGuiApplication>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace quor::platform {

namespace {

// Null on other platforms; some of them offer the native interface too.
xcb_connection_t* xConnection()
{
    return QGuiApplication::platformName() == "xcb"_L1
        ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection()
        : nullptr;
}

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie = xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

template <std::size_t count>
void setCardinals(xcb_connection_t* connection, WId window, std::string_view property,
    const std::array<std::uint32_t, count>& values)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, xcb_window_t(window), atom(connection, property),
        XCB_ATOM_CARDINAL, 32, count, values.data());
}

} // namespace

void forgetContentOnResize(WId window)
{
    if (auto* connection = xConnection()) {
        const std::array gravity{std::uint32_t(XCB_GRAVITY_BIT_FORGET)};
        xcb_change_window_attributes(connection, xcb_window_t(window), XCB_CW_BIT_GRAVITY, gravity.data());
    }
}

void setOnAllDesktops(WId window)
{
    auto* connection = xConnection();
    if (!connection)
        return;
    constexpr std::array allDesktops{0xffffffffU};
    // The property is for a window manager that comes later, the message for the one that runs.
    setCardinals(connection, window, "_NET_WM_DESKTOP", allDesktops);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = xcb_window_t(window);
    message.type = atom(connection, "_NET_WM_DESKTOP");
    message.data.data32[0] = allDesktops[0];
    message.data.data32[1] = 1; // asked by an application
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, 0, root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

void setTopStrut(WId window, const TopStrut& strut)
{
    auto* connection = xConnection();
    if (!connection)
        return;
    // left, right, top, bottom; then where along the edge each of them starts and ends
    std::array<std::uint32_t, 12> values{};
    values[2] = std::uint32_t(strut.height);
    values[8] = std::uint32_t(strut.startX);
    values[9] = std::uint32_t(strut.endX);
    setCardinals(connection, window, "_NET_WM_STRUT_PARTIAL", values);
    setCardinals(connection, window, "_NET_WM_STRUT", std::array{0U, 0U, values[2], 0U});
    xcb_flush(connection);
}

} // namespace quor::platform
