// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Drawing/MenuLine.h"

#include "Platform/Resources/Tinting.h"
#include "View/StatusItem/SingleLineText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace quor::helper {

namespace {

// The time for shaping grows with the length, and no menu has room for more.
constexpr qsizetype longestText = 512;

} // namespace

MenuLine::MenuLine(const QString& text, const QFont& font, double alpha)
    : text_(singleLine(text, longestText))
    , font_(font)
    , alpha_(alpha)
{
    if (text.size() > longestText)
        text_ += QChar(0x2026);
}

int MenuLine::width() const
{
    if (width_ < 0)
        width_ = int(std::ceil(QFontMetricsF(font_).horizontalAdvance(text_)));
    return width_;
}

int MenuLine::height() const
{
    return int(std::ceil(QFontMetricsF(font_).height()));
}

void MenuLine::draw(
    QPainter& painter, const QRectF& frame, const QColor& color, Qt::LayoutDirection layout) const
{
    const QFontMetricsF metrics(font_);
    if (frameWidth_ != frame.width()) {
        frameWidth_ = frame.width();
        const bool fits = width() <= frame.width();
        shownText_ = fits ? text_ : metrics.elidedText(text_, Qt::ElideRight, frame.width());
        shownWidth_ = fits ? width() : metrics.horizontalAdvance(shownText_);
    }
    const double left = layout == Qt::RightToLeft ? frame.right() - shownWidth_ : frame.left();
    const double top = frame.top() + (frame.height() - metrics.height()) / 2;
    painter.setFont(font_);
    painter.setPen(platform::withAlpha(color, color.alphaF() * alpha_));
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(alignedToDevicePixels(painter, {left, top + metrics.ascent()}), shownText_);
}

} // namespace quor::helper
