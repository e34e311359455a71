// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "View/MenuBarCustomMenu/Controls/MenuClickArea.h"
#include "View/MenuBarCustomMenu/Rows/MenuCellMetrics.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace quor::helper {

/// An `entry` row of the menu: icon, label, and a hot key at the trailing end, mirrored in a
/// right-to-left layout. The parts are painted and are no widgets, so a rebuild costs little.
///
///     cell->data = entry;
///     cell->rebuild();
///
/// Text and icon take the colour that goes with the ground below: on an `EmphasizedRowView` that is
/// selected, that for selected text. `sizeHint()` is the fitting size; its height is the same for
/// every entry (16 with a menu font of 13 pixels, more with a larger one). Main thread only.
class MenuCellView final : public QWidget {
    Q_OBJECT

public:
    explicit MenuCellView(QWidget* parent = nullptr);

    std::optional<MenuEntry::Entry> data;
    /// On a click anywhere in the cell, headings too, but not if the entry's action has changed
    /// between press and release. May end the cell.
    std::function<void()> clicked;

    /// Shows `data` from now on; nothing happens without.
    void rebuild();

    /// Above all else, over the whole cell. Takes no focus.
    [[nodiscard]] MenuClickArea& clickArea() { return clickArea_; }

    [[nodiscard]] const MenuCellMetrics& metrics() const { return metrics_; }
    /// What is shown.
    [[nodiscard]] const MenuCellMetrics::Parts& parts() const { return parts_; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QColor tint(const QColor& textColor) const;

    MenuCellMetrics metrics_;
    std::optional<MenuEntry::Entry> built_;
    MenuCellMetrics::Parts parts_;
    MenuClickArea clickArea_;
};

} // namespace quor::helper
