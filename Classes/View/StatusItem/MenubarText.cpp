// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarText.h"

#include "View/StatusItem/SingleLineText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quor::helper {

namespace {

// What a label keeps free at both ends, as every label of the desktop does.
constexpr double sideBearing = 2;

// Shaping takes time by the length, and no status item has room for more.
constexpr qsizetype longestText = 512;

} // namespace

MenubarText::MenubarText(const TextStyle& style, int tag, QWidget* parent)
    : MenubarElement(tag, parent)
    , style_(style)
    , height_(std::ceil(QFontMetricsF(style.font).height()))
{
    setText({});
}

void MenubarText::setText(const QString& text)
{
    QString shown = singleLine(text, longestText);
    if (width_ > 0 && shown == text_)
        return;
    text_ = std::move(shown);
    width_ = std::ceil(QFontMetricsF(style_.font).horizontalAdvance(text_)) + 2 * sideBearing;
}

void MenubarText::draw(QPainter& painter) const
{
    if (width_ > frame().width()) {
        painter.setClipRect(
            QRectF(sideBearing, 0, frame().width() - 2 * sideBearing, frame().height()), Qt::IntersectClip);
    }
    painter.setFont(style_.font);
    painter.setPen(Qt::white);
    const QPointF baseline(sideBearing, (frame().height() + style_.capHeight) / 2);
    painter.drawText(alignedToDevicePixels(painter, baseline), text_);
}

} // namespace quor::helper
