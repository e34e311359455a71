// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace quor::platform {

// The X connection that Qt has opened, and what everybody asks of it.

/// An answer of the X server, which comes on the heap.
template <typename Reply>
using X11Reply = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
X11Reply<Reply> x11Reply(Reply* reply)
{
    return {reply, &std::free};
}

/// Null where the application does not run through X.
[[nodiscard]] xcb_connection_t* x11Connection();

/// The window behind all others, of the first screen.
[[nodiscard]] xcb_window_t x11Root(xcb_connection_t* connection);

/// Waits for the server. `XCB_ATOM_NONE` if it does not answer.
[[nodiscard]] xcb_atom_t x11Atom(xcb_connection_t* connection, std::string_view name);

/// The values of a property of 32-bit numbers, at most 4096; empty if the window or the property is not
/// there. Waits for the server.
[[nodiscard]] std::vector<std::uint32_t> x11Values(
    xcb_connection_t* connection, xcb_window_t window, std::string_view property);

/// Asks the window manager, which may do what is told of the message for this window. Does not wait.
void x11AskWindowManager(xcb_connection_t* connection, xcb_window_t window, std::string_view message,
    std::array<std::uint32_t, 5> data);

} // namespace quor::platform
