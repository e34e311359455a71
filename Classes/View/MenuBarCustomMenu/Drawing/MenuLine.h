// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

class QColor;
class QPainter;

namespace quor::helper {

/// One line of text in a menu. Line breaks become blanks, and only the first 512 characters of a text are
/// kept. The direction of the text follows from its own letters, not from the layout. Main thread only.
class MenuLine final {
public:
    MenuLine() = default;
    /// `alpha` is the opacity of the text, from 0 to 1.
    MenuLine(const QString& text, const QFont& font, double alpha = 1);

    [[nodiscard]] const QString& text() const { return text_; }
    [[nodiscard]] const QFont& font() const { return font_; }

    /// In device-independent pixels, rounded up. The first call measures the text.
    [[nodiscard]] int width() const;
    /// The height of a line in the font, rounded up, in device-independent pixels.
    [[nodiscard]] int height() const;

    /// Draws the text vertically centred at the leading edge of `frame`, which is the right one in a
    /// right-to-left layout. A text wider than the frame ends in an ellipsis.
    void draw(QPainter& painter, const QRectF& frame, const QColor& color, Qt::LayoutDirection layout) const;

private:
    QString text_;
    QFont font_;
    double alpha_ = 1;
    mutable int width_ = -1; ///< -1 until it is measured
    mutable QString shownText_; ///< what the last `draw` showed, and its width
    mutable double shownWidth_ = 0;
    mutable double frameWidth_ = -1; ///< of the last `draw`
};

} // namespace quor::helper
