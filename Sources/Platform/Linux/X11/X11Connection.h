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

// Requests on the X connection that Qt has opened.

/// A reply of the X server, which xcb allocates with `malloc`.
template <typename Reply>
using X11Reply = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
X11Reply<Reply> x11Reply(Reply* reply)
{
    return {reply, &std::free};
}

/// Returns Qt's connection, or null if Qt's platform is not X.
[[nodiscard]] xcb_connection_t* x11Connection();

/// Returns the root window of the first screen.
[[nodiscard]] xcb_window_t x11Root(xcb_connection_t* connection);

/// Returns the atom of `name`, creating it if necessary, or `XCB_ATOM_NONE` if the server does not answer.
/// Waits for the server.
[[nodiscard]] xcb_atom_t x11Atom(xcb_connection_t* connection, std::string_view name);

/// Returns the values of a property of 32-bit numbers, at most the first 4096. Returns an empty list if the
/// window or the property does not exist, or if the property has another format. Waits for the server.
[[nodiscard]] std::vector<std::uint32_t> x11Values(
    xcb_connection_t* connection, xcb_window_t window, std::string_view property);

/// Sends the window manager a client message about a window. Waits for the server to name the message's
/// atom, but not for the window manager, which may ignore the message.
void x11AskWindowManager(xcb_connection_t* connection, xcb_window_t window, std::string_view message,
    std::array<std::uint32_t, 5> data);

} // namespace quor::platform
