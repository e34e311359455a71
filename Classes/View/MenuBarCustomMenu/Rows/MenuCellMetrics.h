// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "View/MenuBarCustomMenu/Drawing/MenuIcons.h"
#include "View/MenuBarCustomMenu/Drawing/MenuLine.h"
#include "View/MenuBarCustomMenu/Drawing/TextWidthBound.h"

#include <QRect>
#include <QSize>

#include <memory>

namespace quor::helper {

/// The layout of a `MenuCellView`: which parts it shows of an entry, where they are, and how large the cell
/// is. It needs no widget, so that thousands of rows can be measured.
///
/// Sizes are device-independent pixels. All entries, headings too, are as high as a line in the menu font.
/// Create a new object when the user's menu font changes. Main thread only.
class MenuCellMetrics final {
public:
    /// For the menu font at this moment.
    MenuCellMetrics();

    struct Parts {
        platform::TemplateImage icon; ///< without pixels if the entry names no icon, or an unknown one
        MenuLine label;
        MenuLine hotKey;
    };
    struct Frames {
        QRectF icon;
        QRectF label;
        QRectF hotKey; ///< like `icon`, empty if there is no such part
    };

    /// The height of every entry.
    [[nodiscard]] int height() const { return height_; }

    [[nodiscard]] Parts parts(const MenuEntry::Entry& entry, qreal devicePixelRatio) const;
    /// Returns the frames of the parts in a cell of this size, in a left-to-right layout. The label is
    /// narrowed if there is not enough room.
    [[nodiscard]] Frames frames(const Parts& parts, const QSizeF& size) const;
    /// Returns the size in which nothing is narrowed.
    [[nodiscard]] QSize fittingSize(const Parts& parts) const;

    /// Returns false only if the fitting size of the entry is not wider than `width`. Much faster than
    /// `fittingSize`, as it does not lay out the text: to find the widest of thousands of entries, call this
    /// first with the largest width so far.
    [[nodiscard]] bool mayBeWiderThan(const MenuEntry::Entry& entry, int width) const;

private:
    /// Returns the width for an icon, which is at least its height, so that the labels of most rows line up.
    [[nodiscard]] int iconRoom(const QSizeF& icon) const;

    QFont font_;
    QFont titleFont_;
    int height_ = 0;
    mutable std::shared_ptr<TextWidthBound> widthBound_; ///< null until it is needed
};

} // namespace quor::helper
