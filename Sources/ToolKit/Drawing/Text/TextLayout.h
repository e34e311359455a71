// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"

#include <QFont>
#include <QList>
#include <QPointF>
#include <QSizeF>
#include <QTextLayout>

#include <vector>

class QPainter;

namespace quor::toolkit {

/// An attributed text that has been laid out, to be measured and drawn.
///
/// An attachment takes the width of its bounds in the line, and makes the line higher if needed. Not
/// installed: use `TextDrawing.h`. Main thread only.
class TextLayout final {
public:
    /// `font` applies to runs without a font. See `TextDrawing.h` for `wraps` and `maxWidth`.
    TextLayout(const platform::AttributedString& text, const QFont& font, bool wraps, double maxWidth);
    TextLayout(const TextLayout&) = delete;
    TextLayout& operator=(const TextLayout&) = delete;

    /// The measured size, not rounded, in device-independent pixels.
    [[nodiscard]] QSizeF size() const { return size_; }

    /// Draws the text with its upper left corner at `origin`, each line aligned within `width`.
    void draw(QPainter& painter, QPointF origin, double width, Qt::AlignmentFlag alignment) const;

private:
    struct PlacedAttachment {
        int line = 0;
        QRectF rect; ///< relative to the origin of the layout
        QImage image;
    };

    void placeLines(double width);
    void placeLine(QTextLine& line, const QList<QTextLayout::FormatRange>& images);

    QTextLayout layout_;
    std::vector<PlacedAttachment> attachments_;
    QSizeF size_{0, 0};
};

} // namespace quor::toolkit
