// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

struct xcb_connection_t;

namespace quor::platform {

/// Which modifiers of the X server stand for which keys. The keyboard's layout decides.
struct X11Modifiers {
    std::uint16_t option = 0; ///< 0 if the layout has no such key.
    std::uint16_t command = 0; ///< 0 if the layout has no such key.
    std::uint16_t locks = 0; ///< Those of Caps Lock, Num Lock and the like, which a hot key ignores.

    bool operator==(const X11Modifiers&) const = default;

    /// Converts a sum of `HotKeyModifier`. Returns `nullopt` if the layout has not all of these keys.
    [[nodiscard]] std::optional<std::uint16_t> mask(std::uint32_t hotKeyModifiers) const;
    /// All sums of `locks`, with 0.
    [[nodiscard]] std::vector<std::uint16_t> lockVariants() const;
};

/// Returns the modifiers of the layout in force. Waits for the server.
[[nodiscard]] X11Modifiers x11Modifiers(xcb_connection_t* connection);

/// Has the server report changes of the keyboard's layout to this connection, and a held key as presses
/// without releases in between. Returns the type of the reports; `nullopt` if the server cannot do that.
/// Waits for the server.
[[nodiscard]] std::optional<std::uint8_t> followX11Keyboard(xcb_connection_t* connection);

} // namespace quor::platform
