// SPDX-License-Identifier: MIT
#include "ToolKit/Views/PlatformToolTip.h"

#include "Platform/Text/AttributedString.h"
#include "ToolKit/Deferred/EventProtocol.h"
#include "ToolKit/Drawing/GraphicsContext.h"
#include "ToolKit/Drawing/Text/SystemFont.h"
#include "ToolKit/Drawing/Text/TextDrawing.h"
#include "ToolKit/Markdown/MarkdownParser.h"

#include <QEvent>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace quor::toolkit {

namespace {

/// Rounds towards zero, to a length that a widget can have. NaN becomes 0.
int wholePixels(double length)
{
    constexpr double largest = QWIDGETSIZE_MAX;
    return length > -largest ? static_cast<int>(std::min(length, largest)) : 0;
}

QFont fontOf(double size)
{
    return monospacedDigitFont(size, QFont::Normal);
}

} // namespace

PlatformToolTip::PlatformToolTip(QWidget* parent)
    : PlatformView(parent)
{
    updateLayout();
}

template <typename Value>
void PlatformToolTip::layOutWith(Value& field, const Value& value)
{
    field = value;
    if (isMainThread())
        updateLayout();
    setViewNeedsRedraw(true);
}

void PlatformToolTip::redrawWith(QColor& field, const QColor& value)
{
    field = value;
    setViewNeedsRedraw(true);
}

void PlatformToolTip::setContentPadding(const QMarginsF& padding)
{
    layOutWith(contentPadding_, padding);
}

void PlatformToolTip::setCornerRadius(double radius)
{
    layOutWith(cornerRadius_, radius);
}

void PlatformToolTip::setSublabelFontSize(double size)
{
    layOutWith(sublabel_.fontSize, size);
}

void PlatformToolTip::setLabelFontSize(double size)
{
    layOutWith(label_.fontSize, size);
}

void PlatformToolTip::setHeadlineFontSize(double size)
{
    layOutWith(headline_.fontSize, size);
}

void PlatformToolTip::setHeadline(const QString& headline)
{
    layOutWith(headline_.text, headline);
}

void PlatformToolTip::setLabel(const QString& label)
{
    layOutWith(label_.text, label);
}

void PlatformToolTip::setSublabel(const QString& sublabel)
{
    layOutWith(sublabel_.text, sublabel);
}

QColor PlatformToolTip::bgColor() const
{
    return bgColor_.isValid() ? bgColor_ : palette().color(QPalette::Base);
}

void PlatformToolTip::setBgColor(const QColor& color)
{
    redrawWith(bgColor_, color);
}

QColor PlatformToolTip::titleColor() const
{
    return titleColor_.isValid() ? titleColor_ : palette().color(QPalette::Text);
}

void PlatformToolTip::setTitleColor(const QColor& color)
{
    redrawWith(titleColor_, color);
}

platform::AttributedString PlatformToolTip::rendered(const Line& line, const QColor& color)
{
    return MarkdownParser(line.text, fontOf(line.fontSize), color).parse();
}

void PlatformToolTip::updateLayout()
{
    QSizeF whole(0, 0);
    QStringList spoken;
    QPointF position(contentPadding_.left(), contentPadding_.top());
    for (Line* line : {&headline_, &label_, &sublabel_}) {
        line->position = position;
        if (line->text.isEmpty()) {
            // Without a label, the sublabel is at the top.
            position.setY(contentPadding_.top());
            continue;
        }
        const auto text = rendered(*line, Qt::white);
        const QSizeF size = textSize(text, fontOf(line->fontSize), false);
        position.ry() += std::ceil(size.height()) + labelSpacing_;
        whole = {std::max(whole.width(), size.width()), whole.height() + size.height() + labelSpacing_};
        spoken += QString(text.string()).remove(QChar::ObjectReplacementCharacter);
    }
    setAccessibleName(spoken.join(u'\n'));
    const double width = std::ceil(whole.width()) + contentPadding_.left() + contentPadding_.right();
    const double height = std::ceil(whole.height()) + contentPadding_.top() + contentPadding_.bottom();
    resize(wholePixels(std::ceil(width)), wholePixels(std::ceil(height)));
}

QPoint PlatformToolTip::position(double x, double y, const QWidget& container) const
{
    constexpr double distance = 5;
    double left = container.width() < x + width() ? x - width() : x;
    if (left < 0)
        left = 1;
    double top = y - height() - distance;
    if (top < 0)
        top = y + distance;
    return {wholePixels(std::round(left)), wholePixels(std::round(top))};
}

void PlatformToolTip::draw(QPainter& context)
{
    drawRoundedRect(context, bgColor(), true, cornerRadius_, rect());
    const double room = width() - contentPadding_.left() - contentPadding_.right();
    for (const Line* line : {&headline_, &label_, &sublabel_}) {
        if (!line->text.isEmpty())
            drawAttributedText(context, rendered(*line, titleColor()), Qt::AlignLeft,
                TextVerticalAlignment::top, false, std::nullopt, line->position.x(), line->position.y(),
                room);
    }
}

void PlatformToolTip::changeEvent(QEvent* event)
{
    PlatformView::changeEvent(event);
    // The font sizes are fixed, but the family is the desktop's.
    if (event->type() == QEvent::FontChange)
        updateLayout();
}

} // namespace quor::toolkit
