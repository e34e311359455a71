// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "View/MenuBarCustomMenu/Drawing/MenuIcons.h"
#include "View/MenuBarCustomMenu/Drawing/MenuLine.h"

#include <QRect>
#include <QSize>

#include <memory>

namespace quor::helper {

/// What a `MenuCellView` shows of its entry, and where. The one place that knows how large a row is,
/// so that rows are measured without a widget.
///
/// Sizes are device-independent pixels. Every entry is as high as a line in the menu's font, headings
/// too, so `height()` holds for all rows of a list. It follows the user's font: made anew when that
/// changes. Main thread only.
class MenuCellMetrics final {
public:
    /// Of the menu font as it stands now.
    MenuCellMetrics();

    struct Parts {
        platform::TemplateImage icon; ///< without pixels if the entry names none, or one that is nowhere
        MenuLine label;
        MenuLine hotKey;
    };
    struct Frames {
        QRectF icon;
        QRectF label;
        QRectF hotKey; ///< both empty where there is none
    };

    [[nodiscard]] int height() const { return height_; }

    [[nodiscard]] Parts parts(const MenuEntry::Entry& entry, qreal devicePixelRatio) const;
    /// Where the parts lie from left to right; the label gives way where the room is short.
    [[nodiscard]] Frames frames(const Parts& parts, const QSizeF& size) const;
    [[nodiscard]] QSize fittingSize(const Parts& parts) const;

    [[nodiscard]] QSize fittingSize(const MenuEntry::Entry& entry) const;
    /// False if the entry is surely no wider than `width`, told without shaping its text. To measure
    /// thousands of rows, ask this first, with the largest width so far.
    [[nodiscard]] bool mayBeWiderThan(const MenuEntry::Entry& entry, int width) const;

private:
    class Advances;

    /// Small and narrow icons stand in the middle of a square, so that labels line up.
    [[nodiscard]] int iconRoom(const QSizeF& icon) const;

    QFont font_;
    QFont titleFont_;
    int height_ = 0;
    mutable std::shared_ptr<Advances> advances_; ///< of single letters, learnt as they come
};

} // namespace quor::helper
