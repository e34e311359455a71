// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarText.h"

#include "View/StatusItem/SingleLineText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <utility>

namespace quor::helper {

namespace {

// The room that a label keeps free at both ends, as every label of the desktop does.
constexpr double sideBearing = 2;

// Shaping takes time by the length, and no status item has room for more.
constexpr qsizetype longestText = 512;

} // namespace

void MenubarText::setText(const QString& text, const TextStyle& style)
{
    QString shown = singleLine(text, longestText);
    if (style_ == &style && shown == text_)
        return;
    text_ = std::move(shown);
    style_ = &style;
    const QFontMetricsF metrics(style.font);
    width_ = std::ceil(metrics.horizontalAdvance(text_)) + 2 * sideBearing;
    height_ = std::ceil(metrics.height());
}

void MenubarText::draw(QPainter& painter, QSizeF size) const
{
    if (width_ > size.width())
        painter.setClipRect(
            QRectF(sideBearing, 0, size.width() - 2 * sideBearing, size.height()), Qt::IntersectClip);
    painter.setFont(style_->font);
    painter.setPen(Qt::white);
    const QPointF baseline(sideBearing, (size.height() + style_->capHeight) / 2);
    painter.drawText(alignedToDevicePixels(painter, baseline), text_);
}

} // namespace quor::helper
