// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Lifetime/Callback.h"
#include "View/MenuBarCustomMenu/Controls/MenuClickArea.h"
#include "View/MenuBarCustomMenu/Rows/MenuCellMetrics.h"

#include <QWidget>

#include <optional>

namespace quor::helper {

/// An `Entry` row of the menu: icon, label, and a hot key at the trailing end, mirrored in a right-to-left
/// layout. It paints its parts, which are no widgets, so that a rebuild is cheap.
///
///     cell->data = entry;
///     cell->rebuild();
///
/// Text and icon have the text colour of the row, also while the row is selected. The height of `sizeHint()`
/// is the same for all entries: 16 with a menu font of 13 pixels, more with a larger one. Main thread only.
class MenuCellView final : public QWidget {
    Q_OBJECT

public:
    explicit MenuCellView(QWidget* parent = nullptr);

    /// The entry to show from the next `rebuild` on.
    std::optional<MenuEntry::Entry> data;
    /// The cell was clicked anywhere, which includes headings; gets the entry that it shows. Not called if
    /// the cell was hidden, or the action of the entry has changed, between press and release. May delete
    /// the cell.
    platform::Callback<void(const MenuEntry::Entry& entry)> clicked;

    /// Shows `data`; has no effect if that is absent.
    void rebuild();

    /// Covers the whole cell, above all other children.
    [[nodiscard]] MenuClickArea& clickArea() { return clickArea_; }

    [[nodiscard]] const MenuCellMetrics& metrics() const { return metrics_; }
    /// The parts of the entry that is shown.
    [[nodiscard]] const MenuCellMetrics::Parts& parts() const { return parts_; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QColor tint(const QColor& textColor) const;

    MenuCellMetrics metrics_;
    std::optional<MenuEntry::Entry> built_; ///< what is shown
    MenuCellMetrics::Parts parts_;
    MenuClickArea clickArea_;
};

} // namespace quor::helper
