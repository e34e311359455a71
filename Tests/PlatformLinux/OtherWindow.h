// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QPoint>

#include <cstdint>
#include <cstdlib>

#include <unistd.h>
#include <xcb/xcb.h>

namespace quor::test {

/// A window of 200 by 100 device pixels of another client of the X server, which says that it is from
/// this process. It goes with its connection.
class OtherWindow final {
public:
    explicit OtherWindow(QPoint topLeft)
    {
        const std::uint32_t events = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
        xcb_create_window(x, XCB_COPY_FROM_PARENT, id, root, std::int16_t(topLeft.x()),
            std::int16_t(topLeft.y()), 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
            XCB_CW_EVENT_MASK, &events);
        constexpr std::uint32_t placeIsTheUsers[18]{1};
        set(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 18, placeIsTheUsers);
        const auto process = std::uint32_t(getpid());
        set(atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 1, &process);
        xcb_map_window(x, id);
        sync();
    }
    ~OtherWindow() { xcb_disconnect(x); }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;

    /// Returns when the server has done all that was asked of it.
    void sync() const { free(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr)); }

    /// False while another client holds it.
    [[nodiscard]] bool holdPointer() const
    {
        auto* reply = xcb_grab_pointer_reply(x,
            xcb_grab_pointer(x, 0, id, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
            nullptr);
        const bool holds = reply->status == XCB_GRAB_STATUS_SUCCESS;
        free(reply);
        return holds;
    }

    /// The window manager may take its time.
    [[nodiscard]] bool isShown() const
    {
        auto* reply = xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, id), nullptr);
        const bool shown = reply->map_state == XCB_MAP_STATE_VIEWABLE;
        free(reply);
        return shown;
    }

    [[nodiscard]] bool hasKeyboard() const
    {
        auto* reply = xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr);
        const bool has = reply->focus == id;
        free(reply);
        return has;
    }

    [[nodiscard]] QPoint middle() const { return place(id, {100, 50}); }

    /// On the desktop, of a point in any window.
    [[nodiscard]] QPoint place(xcb_window_t window, QPoint point) const
    {
        auto* reply = xcb_translate_coordinates_reply(x,
            xcb_translate_coordinates(x, window, root, std::int16_t(point.x()), std::int16_t(point.y())),
            nullptr);
        const QPoint found(reply->dst_x, reply->dst_y);
        free(reply);
        return found;
    }

    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    xcb_window_t id = xcb_generate_id(x);

private:
    [[nodiscard]] xcb_atom_t atom(QByteArrayView name) const
    {
        auto* reply = xcb_intern_atom_reply(
            x, xcb_intern_atom(x, 0, std::uint16_t(name.size()), name.data()), nullptr);
        const auto atom = reply->atom;
        free(reply);
        return atom;
    }
    void set(xcb_atom_t property, xcb_atom_t type, std::uint32_t count, const std::uint32_t* values) const
    {
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, property, type, 32, count, values);
    }
};

} // namespace quor::test
