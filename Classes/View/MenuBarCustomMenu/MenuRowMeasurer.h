// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Services/Clock.h"
#include "View/MenuBarCustomMenu/Rows/MenuCellView.h"

#include <QSize>

#include <optional>
#include <vector>

namespace quor::helper {

/// How wide a menu must be for its rows, and how high each row is. One cell serves all measuring, and
/// only rows that may be wider than those before are laid out. Device-independent pixels. Main thread
/// only.
class MenuRowMeasurer final {
public:
    static constexpr int maxWidth = 500;
    static constexpr int sideRoom = 52; ///< around the rows, on both sides together

    /// `parent` lends its font to the measuring cell and owns it; `clock` must outlive this object.
    MenuRowMeasurer(QWidget& parent, const platform::Clock& clock);

    /// How wide a menu must be for the rows: `atLeast`, more for a wider row with the room around it,
    /// but then at most `maxWidth`. Sets `cellHeight`, and measures the other kinds anew.
    [[nodiscard]] int measure(const std::vector<MenuEntry>& rows, int atLeast);

    [[nodiscard]] int cellHeight() const { return cellHeight_; }
    [[nodiscard]] int adjustStartHeight() const { return adjustStartSize().height(); }
    [[nodiscard]] int stopPastHeight() const { return stopPastSize().height(); }

private:
    /// 0 for a row that is surely no wider than `widest`.
    [[nodiscard]] int widthOf(const MenuEntry& row, int widest);
    [[nodiscard]] const QSize& adjustStartSize() const;
    [[nodiscard]] const QSize& stopPastSize() const;

    const platform::Clock& clock_;
    MenuCellView& prototypeCellView_;
    int cellHeight_ = 16;
    // Of a fresh view, since the last measuring; made when first asked for.
    mutable std::optional<QSize> adjustStartSize_;
    mutable std::optional<QSize> stopPastSize_;
};

} // namespace quor::helper
