// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include <xcb/xcb.h>

namespace quor::platform {

// The two requests of the X server's input extension that are needed here, by hand: the library for all
// of it would be loaded at the start of every program that links this one.

/// The extension's opcode, once the server has agreed to speak a version of it that has raw events also
/// while somebody holds the pointer; none if it does not. Waits for the server.
[[nodiscard]] std::optional<std::uint8_t> negotiateInputExtension(xcb_connection_t* connection);

/// Has the events in the mask come to this connection, of all pointers, for the window; 0 ends it.
void selectPointerEvents(
    xcb_connection_t* connection, std::uint8_t opcode, xcb_window_t window, std::uint32_t mask);

} // namespace quor::platform
