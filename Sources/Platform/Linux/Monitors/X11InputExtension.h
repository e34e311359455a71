// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include <xcb/xcb.h>

namespace quor::platform {

// Two requests of the X server's input extension, without libxcb-xinput, which every program that links this
// library would load at its start.

/// Negotiates the version and returns the extension's opcode. Returns `nullopt` if the server does not
/// support version 2.1, the first one that reports raw events during pointer grabs. Waits for the server.
[[nodiscard]] std::optional<std::uint8_t> negotiateInputExtension(xcb_connection_t* connection);

/// Selects the events in `mask` (bits of `xcb_input_xi_event_mask_t`) of all pointers for a window. They
/// replace the events that this connection selected before; 0 selects none.
void selectPointerEvents(
    xcb_connection_t* connection, std::uint8_t opcode, xcb_window_t window, std::uint32_t mask);

} // namespace quor::platform
