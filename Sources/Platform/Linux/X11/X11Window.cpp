// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11/X11Window.h"

#include "Platform/Linux/X11/X11Connection.h"

#include <QRegion>

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include <xcb/xfixes.h>

namespace quor::platform {

namespace {

template <std::size_t count>
void setCardinals(xcb_connection_t* connection, WId window, std::string_view property,
    const std::array<std::uint32_t, count>& values)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, xcb_window_t(window),
        x11Atom(connection, property), XCB_ATOM_CARDINAL, 32, count, values.data());
}

} // namespace

void forgetContentOnResize(WId window)
{
    if (auto* connection = x11Connection()) {
        const std::array gravity{std::uint32_t(XCB_GRAVITY_BIT_FORGET)};
        xcb_change_window_attributes(connection, xcb_window_t(window), XCB_CW_BIT_GRAVITY, gravity.data());
    }
}

void setOnAllDesktops(WId window)
{
    auto* connection = x11Connection();
    if (!connection)
        return;
    constexpr std::array allDesktops{0xffffffffU};
    // The property is read when the window is shown. While it is shown, the window manager expects a message.
    setCardinals(connection, window, "_NET_WM_DESKTOP", allDesktops);
    constexpr std::uint32_t byApplication = 1;
    x11AskWindowManager(connection, xcb_window_t(window), "_NET_WM_DESKTOP", {allDesktops[0], byApplication});
}

void setOutOfWindowLists(WId window)
{
    auto* connection = x11Connection();
    if (!connection)
        return;
    const std::array states{
        x11Atom(connection, "_NET_WM_STATE_SKIP_TASKBAR"), x11Atom(connection, "_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, xcb_window_t(window),
        x11Atom(connection, "_NET_WM_STATE"), XCB_ATOM_ATOM, 32, states.size(), states.data());
}

bool setWindowShape(WId window, const QRegion& shape)
{
    auto* connection = x11Connection();
    const auto* extension = connection ? xcb_get_extension_data(connection, &xcb_xfixes_id) : nullptr;
    if (!extension || !extension->present)
        return false;
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& rect : shape)
        rectangles.push_back({std::int16_t(rect.x()), std::int16_t(rect.y()), std::uint16_t(rect.width()),
            std::uint16_t(rect.height())});
    xcb_xfixes_region_t region = XCB_NONE; // which stands for the whole window
    if (!rectangles.empty()) {
        region = xcb_generate_id(connection);
        xcb_xfixes_create_region(connection, region, std::uint32_t(rectangles.size()), rectangles.data());
    }
    xcb_xfixes_set_window_shape_region(connection, xcb_window_t(window), XCB_SHAPE_SK_BOUNDING, 0, 0, region);
    if (region != XCB_NONE)
        xcb_xfixes_destroy_region(connection, region);
    return true;
}

void setTopStrut(WId window, const TopStrut& strut)
{
    auto* connection = x11Connection();
    if (!connection)
        return;
    // The widths at the left, right, top and bottom edge, then the start and end of each of the four.
    std::array<std::uint32_t, 12> values{};
    values[2] = std::uint32_t(strut.height);
    values[8] = std::uint32_t(strut.startX);
    values[9] = std::uint32_t(strut.endX);
    setCardinals(connection, window, "_NET_WM_STRUT_PARTIAL", values);
    setCardinals(connection, window, "_NET_WM_STRUT", std::array{0U, 0U, values[2], 0U});
    xcb_flush(connection);
}

} // namespace quor::platform
