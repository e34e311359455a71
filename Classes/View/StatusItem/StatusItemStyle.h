// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace quor::helper {

/// A font and the height of its capitals.
struct TextStyle {
    QFont font;
    double capHeight = 0; ///< device-independent pixels
};

/// The fonts of the status item and the size of its symbols.
struct StatusItemStyle {
    TextStyle label;
    TextStyle smallLabel; ///< for two lines
    double diameter = 0; ///< side of every symbol, in device-independent pixels

    /// Returns the style that follows from the user's general font. Takes longer than a rendering, so create
    /// it once for an item. Main thread only.
    [[nodiscard]] static StatusItemStyle ofSystem();
};

} // namespace quor::helper
