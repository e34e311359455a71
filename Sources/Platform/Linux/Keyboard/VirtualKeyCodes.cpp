// SPDX-License-Identifier: MIT
#include "Platform/Linux/Keyboard/VirtualKeyCodes.h"

#include <array>

#include <linux/input-event-codes.h>

namespace quor::platform {

namespace {

constexpr std::uint16_t none = KEY_RESERVED;

/// The evdev code of each virtual key code.
constexpr std::array<std::uint16_t, 0x80> evdevCodes{// 0x00
    KEY_A, KEY_S, KEY_D, KEY_F, KEY_H, KEY_G, KEY_Z, KEY_X, //
    KEY_C, KEY_V, KEY_102ND, KEY_B, KEY_Q, KEY_W, KEY_E, KEY_R,
    // 0x10
    KEY_Y, KEY_T, KEY_1, KEY_2, KEY_3, KEY_4, KEY_6, KEY_5, //
    KEY_EQUAL, KEY_9, KEY_7, KEY_MINUS, KEY_8, KEY_0, KEY_RIGHTBRACE, KEY_O,
    // 0x20
    KEY_U, KEY_LEFTBRACE, KEY_I, KEY_P, KEY_ENTER, KEY_L, KEY_J, KEY_APOSTROPHE, //
    KEY_K, KEY_SEMICOLON, KEY_BACKSLASH, KEY_COMMA, KEY_SLASH, KEY_N, KEY_M, KEY_DOT,
    // 0x30
    KEY_TAB, KEY_SPACE, KEY_GRAVE, KEY_BACKSPACE, none, KEY_ESC, KEY_RIGHTMETA, KEY_LEFTMETA, //
    KEY_LEFTSHIFT, KEY_CAPSLOCK, KEY_LEFTALT, KEY_LEFTCTRL, KEY_RIGHTSHIFT, KEY_RIGHTALT, KEY_RIGHTCTRL,
    KEY_FN,
    // 0x40
    KEY_F17, KEY_KPDOT, none, KEY_KPASTERISK, none, KEY_KPPLUS, none, KEY_NUMLOCK, //
    KEY_VOLUMEUP, KEY_VOLUMEDOWN, KEY_MUTE, KEY_KPSLASH, KEY_KPENTER, none, KEY_KPMINUS, KEY_F18,
    // 0x50
    KEY_F19, KEY_KPEQUAL, KEY_KP0, KEY_KP1, KEY_KP2, KEY_KP3, KEY_KP4, KEY_KP5, //
    KEY_KP6, KEY_KP7, KEY_F20, KEY_KP8, KEY_KP9, KEY_YEN, KEY_RO, KEY_KPCOMMA,
    // 0x60
    KEY_F5, KEY_F6, KEY_F7, KEY_F3, KEY_F8, KEY_F9, KEY_HANJA, KEY_F11, //
    KEY_HANGEUL, KEY_F13, KEY_F16, KEY_F14, none, KEY_F10, KEY_COMPOSE, KEY_F12,
    // 0x70
    none, KEY_F15, KEY_INSERT, KEY_HOME, KEY_PAGEUP, KEY_DELETE, KEY_F4, KEY_END, //
    KEY_F2, KEY_PAGEDOWN, KEY_F1, KEY_LEFT, KEY_RIGHT, KEY_DOWN, KEY_UP, none};

constexpr auto virtualKeyCodes = [] {
    std::array<std::optional<std::uint32_t>, KEY_FN + 1> codes{};
    for (std::uint32_t code = 0; code < evdevCodes.size(); ++code) {
        if (evdevCodes[code] != none)
            codes[evdevCodes[code]] = code;
    }
    return codes;
}();

} // namespace

std::optional<std::uint16_t> evdevCode(std::uint32_t virtualKeyCode)
{
    const auto code = virtualKeyCode < evdevCodes.size() ? evdevCodes[virtualKeyCode] : none;
    return code == none ? std::nullopt : std::optional(code);
}

std::optional<std::uint32_t> virtualKeyCode(std::uint32_t evdevCode)
{
    return evdevCode < virtualKeyCodes.size() ? virtualKeyCodes[evdevCode] : std::nullopt;
}

} // namespace quor::platform
