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

xcb_intern_atom_cookie_t requestAtom(xcb_connection_t* connection, std::string_view name)
{
    return xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.data());
}

xcb_atom_t atom(xcb_connection_t* connection, xcb_intern_atom_cookie_t cookie)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

template <std::size_t count>
void setCardinals(xcb_connection_t* connection, WId window, xcb_atom_t property,
    const std::array<std::uint32_t, count>& values)
{
    if (property != XCB_ATOM_NONE)
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, xcb_window_t(window), property,
            XCB_ATOM_CARDINAL, 32, count, values.data());
}

} // namespace

void keepContentAtRight(WId window)
{
    if (auto* connection = xConnection()) {
        const std::array gravity{std::uint32_t(XCB_GRAVITY_NORTH_EAST)};
        xcb_change_window_attributes(connection, xcb_window_t(window), XCB_CW_BIT_GRAVITY, gravity.data());
    }
}

void setTopStrut(WId window, const TopStrut& strut)
{
    auto* connection = xConnection();
    if (!connection)
        return;
    const auto whole = requestAtom(connection, "_NET_WM_STRUT");
    const auto partial = requestAtom(connection, "_NET_WM_STRUT_PARTIAL");

    // left, right, top, bottom; then where along the edge each of them starts and ends
    std::array<std::uint32_t, 12> values{};
    values[2] = std::uint32_t(strut.height);
    values[8] = std::uint32_t(strut.startX);
    values[9] = std::uint32_t(strut.endX);
    setCardinals(connection, window, atom(connection, partial), values);
    setCardinals(connection, window, atom(connection, whole), std::array{0U, 0U, values[2], 0U});
    xcb_flush(connection);
}

} // namespace quor::platform
