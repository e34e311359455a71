// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

class QColor;
class QPainter;

namespace quor::helper {

/// One line of text in a menu. Of a very long text only the beginning is kept, and line breaks show
/// as blanks. Reads in the direction of its own first letters, whatever the layout's. Main thread only.
class MenuLine final {
public:
    MenuLine() = default;
    /// `alpha`: of the colour that it is drawn in.
    MenuLine(const QString& text, const QFont& font, double alpha = 1);

    [[nodiscard]] const QString& text() const { return text_; }
    [[nodiscard]] const QFont& font() const { return font_; }
    [[nodiscard]] double alpha() const { return alpha_; }

    /// Both rounded up to whole device-independent pixels. The width is measured when first asked for.
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;

    /// In the middle of the height and at the leading edge of `layout`; cut with an ellipsis at its
    /// end if it is wider than the frame.
    void draw(QPainter& painter, const QRectF& frame, const QColor& color, Qt::LayoutDirection layout) const;

private:
    QString text_;
    QFont font_;
    double alpha_ = 1;
    mutable int width_ = -1; ///< not measured yet
    mutable QString cut_; ///< as it was drawn last
    mutable double cutWidth_ = 0;
    mutable double cutFor_ = -1; ///< the width of the frame
};

} // namespace quor::helper
