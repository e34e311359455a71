// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include <xcb/xcb.h>

namespace quor::platform {

// Which window has the keyboard. Asked of the window manager where one runs that can tell, else of the
// X server. Windows of other programs may go at any moment: each of these bears that.

/// None while no window has the keyboard, or whichever is under the pointer.
[[nodiscard]] std::optional<xcb_window_t> activeWindow(xcb_connection_t* connection);

/// Gives the keyboard to a top-level window, whoever has it. False if the window is not there or, without
/// a window manager, not to be seen.
bool activateWindow(xcb_connection_t* connection, xcb_window_t window);

/// The process on this machine that a window is from, as far as it says so.
[[nodiscard]] std::optional<std::uint32_t> processOfWindow(xcb_connection_t* connection, xcb_window_t window);

/// The foremost of the windows that the window manager knows of this process.
[[nodiscard]] std::optional<xcb_window_t> windowOfProcess(
    xcb_connection_t* connection, std::uint32_t process);

} // namespace quor::platform
