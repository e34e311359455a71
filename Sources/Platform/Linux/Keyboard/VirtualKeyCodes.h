// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace quor::platform {

// Virtual key codes name positions on the keyboard, as do the codes of the kernel's evdev interface.

/// Returns the evdev code of a virtual key code, or `nullopt` if no key of a Linux keyboard has the position.
[[nodiscard]] std::optional<std::uint16_t> evdevCode(std::uint32_t virtualKeyCode);

/// Returns the virtual key code of an evdev code, or `nullopt` for a key that has none.
[[nodiscard]] std::optional<std::uint32_t> virtualKeyCode(std::uint32_t evdevCode);

/// X servers and Wayland compositors number keys by the evdev code plus this.
inline constexpr std::uint32_t x11KeycodeOffset = 8;

} // namespace quor::platform
