// SPDX-License-Identifier: MIT
#pragma once

#include <Platform/Services/KeyboardLayout.h>

#include <QString>

#include <cstdint>
#include <optional>

/// A combination of keys, as hot keys are registered.
struct Combination {
    std::uint32_t keyCode = 0; ///< A virtual key code.
    std::uint32_t modifiers = 0; ///< A sum of `HotKeyModifier`.
};

/// Reads "ctrl+super+space": modifiers, then a key by its name, by what it types in the layout, or by its
/// code ("0x31"). Returns `nullopt` for anything else.
[[nodiscard]] std::optional<Combination> combination(
    const QString& text, const quor::platform::KeyboardLayout& layout);
