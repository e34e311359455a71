// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

namespace quor::platform {

// Functions for the order of windows, and for the active window, the one that has the keyboard. They use
// `_NET_ACTIVE_WINDOW` if a window manager runs that supports it, otherwise the X server's input focus. A
// window of another process can be destroyed at any time, so each function accepts windows that no longer
// exist. All wait for the server.

/// Returns the active window. Returns `nullopt` if there is none, or if the focus follows the pointer.
[[nodiscard]] std::optional<xcb_window_t> activeWindow(xcb_connection_t* connection);

/// Makes a top-level window the active one, even while the user works in another application. Returns false
/// if the window does not exist or, without a window manager, is not viewable. With a window manager the
/// change comes later.
bool activateWindow(xcb_connection_t* connection, xcb_window_t window);

/// Returns the process that `window` or one of its parents names in `_NET_WM_PID`. Returns `nullopt` if none
/// does, or if that process runs on another machine.
[[nodiscard]] std::optional<std::uint32_t> processOfWindow(xcb_connection_t* connection, xcb_window_t window);

/// Returns the windows that a window manager manages, without one all windows of the desktop: the topmost
/// first.
[[nodiscard]] std::vector<xcb_window_t> stackedWindows(xcb_connection_t* connection);

/// Returns the topmost managed window of a process. Returns `nullopt` if it has none, or without a window
/// manager.
[[nodiscard]] std::optional<xcb_window_t> windowOfProcess(
    xcb_connection_t* connection, std::uint32_t process);

} // namespace quor::platform
