// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/KeyboardLayout.h"

#include <QString>

namespace quor::toolkit {

/// Words hot keys for the user: "⌃⌘⎵". Borrows the layout, which must outlive it. Main thread only.
class HotkeyFormatter final {
public:
    explicit HotkeyFormatter(const platform::KeyboardLayout& layout)
        : layout_(layout)
    {
    }

    /// Returns the modifiers, then the key: its symbol, or what it types in the layout in force, or "???" if
    /// it types nothing. `keyCode` is a virtual key code, `modifier` a sum of `HotKeyModifier`; a negative
    /// number means none.
    [[nodiscard]] QString displayString(int keyCode, int modifier) const;

private:
    const platform::KeyboardLayout& layout_;
};

} // namespace quor::toolkit
