// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace quor::platform {

/// The keyboard's layout: what the keys type. Main thread only.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    /// Returns what the key with this virtual key code types without modifiers, in the layout that is in
    /// force now: usually one character, for a dead key its accent. Returns an empty text if the key types
    /// nothing, or if there is no such key.
    [[nodiscard]] virtual QString text(std::uint32_t keyCode) const = 0;

protected:
    KeyboardLayout() = default;
    KeyboardLayout(const KeyboardLayout&) = default;
    KeyboardLayout& operator=(const KeyboardLayout&) = default;
};

} // namespace quor::platform
