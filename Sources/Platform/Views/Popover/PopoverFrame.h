// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/RectEdge.h"

#include <QPainterPath>
#include <QRegion>
#include <QSize>

#include <optional>

class QPainter;
class QPalette;

namespace quor::platform {

/// The picture of a popover without its content: a rounded body with a border and an arrow, and a shadow
/// around it. In the coordinates of the popover's window, in device-independent pixels.
class PopoverFrame final {
public:
    static constexpr int margin = 10; ///< Around the body: the length of the arrow, and room for the shadow.
    static constexpr int padding = 4; ///< Between the body's edge and the content; clears the round corners.
    static constexpr int inset = margin + padding;
    static constexpr int tipInset = margin + 18; ///< Keeps the arrow off the round corners.

    /// A frame without a size.
    PopoverFrame() = default;
    /// `edge` is the side of the anchor on which the popover is, so the arrow is on the opposite side of the
    /// body; `nullopt` for no arrow. `tip` is the arrow's position along that side.
    PopoverFrame(QSize window, std::optional<RectEdge> edge, int tip);

    [[nodiscard]] const QPainterPath& outline() const { return outline_; }
    /// The pixels within the outline, in device pixels, of which `scale` make up a device-independent one.
    [[nodiscard]] QRegion pixels(qreal scale) const;

    /// Paints with soft edges and a shadow, for a translucent window.
    void paintTranslucent(QPainter& painter, const QPalette& palette) const;
    /// Paints for a window of which only `pixels` are seen.
    void paintCutOut(QPainter& painter, const QPalette& palette) const;

private:
    QPainterPath outline_;
    QPainterPath inside_; ///< The outline without the border.
};

} // namespace quor::platform
