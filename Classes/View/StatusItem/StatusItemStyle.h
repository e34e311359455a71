// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace quor::helper {

/// A font, and how high its capitals are drawn.
struct TextStyle {
    QFont font;
    double capHeight = 0; ///< device-independent pixels
};

/// The fonts of the status item, and the size of what stands beside them. Made once for an item, since
/// it takes longer than a rendering. Main thread only.
struct StatusItemStyle {
    TextStyle label;
    TextStyle smallLabel; ///< where there are two lines
    double diameter = 0; ///< side of every symbol, device-independent pixels

    [[nodiscard]] static StatusItemStyle ofSystem();
};

} // namespace quor::helper
