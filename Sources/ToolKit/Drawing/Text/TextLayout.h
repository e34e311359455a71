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

/// An attributed text laid out once, to be measured and drawn.
///
/// Attachments take their bounds' width in the line and raise it where they are higher. Not
/// installed: `TextDrawing.h` is the way in. Main thread only.
class TextLayout final {
public:
    /// `font` counts where the text bears none. See `TextDrawing.h` for `wraps` and `maxWidth`.
    TextLayout(const platform::AttributedString& text, const QFont& font, bool wraps, double maxWidth);
    TextLayout(const TextLayout&) = delete;
    TextLayout& operator=(const TextLayout&) = delete;

    /// As measured, not yet rounded.
    [[nodiscard]] QSizeF size() const { return size_; }

    /// Draws with the upper left corner at `origin`, each line aligned within `width`.
    void draw(QPainter& painter, QPointF origin, double width, Qt::AlignmentFlag alignment) const;

private:
    struct PlacedAttachment {
        int line = 0;
        QRectF rect; // from the layout's origin
        QImage image;
    };

    void placeLines(double width);
    void placeLine(QTextLine& line, const QList<QTextLayout::FormatRange>& images);

    QTextLayout layout_;
    std::vector<PlacedAttachment> attachments_;
    QSizeF size_{0, 0};
};

} // namespace quor::toolkit
