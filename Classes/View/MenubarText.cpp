// SPDX-License-Identifier: MIT
#include "View/MenubarText.h"

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

QString shownText(const QString& text)
{
    qsizetype length = std::min(text.size(), longestText);
    if (length < text.size() && text[length].isLowSurrogate())
        --length;
    QString shown = text.first(length);
    const auto breaksLine = [](QChar unit) {
        return unit.category() == QChar::Other_Control || unit.category() == QChar::Separator_Line
            || unit.category() == QChar::Separator_Paragraph;
    };
    if (std::any_of(shown.cbegin(), shown.cend(), breaksLine))
        std::replace_if(shown.begin(), shown.end(), breaksLine, QChar(u' '));
    return shown;
}

// Between device pixels letters would blur.
QPointF alignedToDevicePixels(const QPainter& painter, QPointF point)
{
    const QTransform toDevice = painter.deviceTransform();
    return toDevice.inverted().map(QPointF(toDevice.map(point).toPoint()));
}

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
    QString shown = shownText(text);
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
