// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11/X11Connection.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace quor::platform {

// The platform's name is checked, as other platforms can offer the native interface with a null connection.
xcb_connection_t* x11Connection()
{
    return QGuiApplication::platformName() == "xcb"_L1
        ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection()
        : nullptr;
}

xcb_window_t x11Root(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t x11Atom(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie = xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.data());
    const auto reply = x11Reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> x11Values(
    xcb_connection_t* connection, xcb_window_t window, std::string_view property)
{
    constexpr std::uint32_t mostValues = 4096;
    const auto cookie = xcb_get_property(
        connection, 0, window, x11Atom(connection, property), XCB_GET_PROPERTY_TYPE_ANY, 0, mostValues);
    const auto reply = x11Reply(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

void x11AskWindowManager(xcb_connection_t* connection, xcb_window_t window, std::string_view message,
    std::array<std::uint32_t, 5> data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = x11Atom(connection, message);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(connection, 0, x11Root(connection),
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&event));
    xcb_flush(connection);
}

} // namespace quor::platform
