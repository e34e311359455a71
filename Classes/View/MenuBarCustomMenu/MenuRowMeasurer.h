// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Services/Clock.h"
#include "View/MenuBarCustomMenu/Rows/MenuCellView.h"

#include <QSize>

#include <optional>
#include <vector>

namespace quor::helper {

/// Measures how wide a menu must be for its rows, and how high each kind of row is, in device-independent
/// pixels. One cell measures all entries, and only those that may be wider than the entries before. Main
/// thread only.
class MenuRowMeasurer final {
public:
    static constexpr int maxWidth = 500;
    static constexpr int sideRoom = 52; ///< beside the rows, left and right together

    /// `parent` becomes the parent of the measuring cell, so that the cell has its font. `parent` and
    /// `clock` must outlive this object.
    MenuRowMeasurer(QWidget& parent, const platform::Clock& clock);

    /// Returns the width of a menu with these rows: the width of the widest row plus `sideRoom`, at most
    /// `maxWidth`, but never less than `atLeast`. The heights below are as of the last measuring.
    [[nodiscard]] int measure(const std::vector<MenuEntry>& rows, int atLeast);

    [[nodiscard]] int cellHeight() const { return cellHeight_; }
    [[nodiscard]] int adjustStartHeight() const { return adjustStartSize().height(); }
    [[nodiscard]] int stopPastHeight() const { return stopPastSize().height(); }

private:
    /// Returns 0 for a row that is certainly not wider than `widest`.
    [[nodiscard]] int widthOf(const MenuEntry& row, int widest);
    [[nodiscard]] const QSize& adjustStartSize() const;
    [[nodiscard]] const QSize& stopPastSize() const;

    const platform::Clock& clock_;
    MenuCellView& prototypeCellView_;
    int cellHeight_ = 16;
    // Absent since the last measuring until they are needed.
    mutable std::optional<QSize> adjustStartSize_;
    mutable std::optional<QSize> stopPastSize_;
};

} // namespace quor::helper
