// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/X11/X11Connection.h"

#include <QPoint>

#include <cstdint>

#include <unistd.h>

namespace quor::test {

/// A window of another client of the X server, 200 by 100 device pixels in size, whose `_NET_WM_PID` is
/// this process.
class OtherWindow final {
public:
    explicit OtherWindow(QPoint topLeft)
    {
        const std::uint32_t events = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
        xcb_create_window(x, XCB_COPY_FROM_PARENT, id, root, std::int16_t(topLeft.x()),
            std::int16_t(topLeft.y()), 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
            XCB_CW_EVENT_MASK, &events);
        constexpr std::uint32_t positionOfUser[18]{1}; // so that window managers keep the position
        set(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 18, positionOfUser);
        const auto process = std::uint32_t(getpid());
        set(platform::x11Atom(x, "_NET_WM_PID"), XCB_ATOM_CARDINAL, 1, &process);
        xcb_map_window(x, id);
        sync();
    }
    ~OtherWindow() { xcb_disconnect(x); }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;

    /// Returns when the server has handled all requests of this client.
    void sync() const { (void)focusedWindow(); }

    /// Grabs the pointer. Returns false while another client grabs it.
    [[nodiscard]] bool grabPointer() const
    {
        const auto cookie = xcb_grab_pointer(x, 0, id, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
            XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
        return platform::x11Reply(xcb_grab_pointer_reply(x, cookie, nullptr))->status
            == XCB_GRAB_STATUS_SUCCESS;
    }

    /// False until the window manager has shown the window.
    [[nodiscard]] bool isShown() const
    {
        const auto cookie = xcb_get_window_attributes(x, id);
        return platform::x11Reply(xcb_get_window_attributes_reply(x, cookie, nullptr))->map_state
            == XCB_MAP_STATE_VIEWABLE;
    }

    [[nodiscard]] bool hasKeyboard() const { return focusedWindow() == id; }

    /// The middle of this window on the desktop, in device pixels.
    [[nodiscard]] QPoint middle() const { return onDesktop(id, {100, 50}); }

    /// Converts a point in any window to the desktop's coordinates, both in device pixels.
    [[nodiscard]] QPoint onDesktop(xcb_window_t window, QPoint point) const
    {
        const auto cookie
            = xcb_translate_coordinates(x, window, root, std::int16_t(point.x()), std::int16_t(point.y()));
        const auto reply = platform::x11Reply(xcb_translate_coordinates_reply(x, cookie, nullptr));
        return {reply->dst_x, reply->dst_y};
    }

    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    xcb_window_t root = platform::x11Root(x);
    xcb_window_t id = xcb_generate_id(x);

private:
    [[nodiscard]] xcb_window_t focusedWindow() const
    {
        return platform::x11Reply(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr))->focus;
    }
    void set(xcb_atom_t property, xcb_atom_t type, std::uint32_t count, const std::uint32_t* values) const
    {
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, property, type, 32, count, values);
    }
};

} // namespace quor::test
