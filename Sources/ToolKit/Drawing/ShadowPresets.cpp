// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/ShadowPresets.h"

#include <QColor>
#include <QGraphicsDropShadowEffect>
#include <QPointF>
#include <QWidget>

#include <memory>

namespace quor::toolkit {

namespace {

void applyShadow(QWidget& widget, QPointF offset, double radius)
{
    // Our radius is a standard deviation; the radius of the effect is the distance at which its blur has
    // faded. Of all factors this one, found by measuring, makes the two look most alike.
    constexpr double effectPerDeviation = 4;
    auto shadow = std::make_unique<QGraphicsDropShadowEffect>();
    shadow->setColor(QColor::fromRgbF(0, 0, 0, 0.2F));
    shadow->setOffset(offset);
    shadow->setBlurRadius(radius * effectPerDeviation);
    widget.setGraphicsEffect(shadow.release());
}

} // namespace

void applyLightShadow(QWidget& widget)
{
    applyShadow(widget, {0, 0}, 4);
}

void applyStrongShadow(QWidget& widget)
{
    applyShadow(widget, {2, 5}, 8);
}

void removeShadow(QWidget& widget)
{
    if (qobject_cast<QGraphicsDropShadowEffect*>(widget.graphicsEffect()))
        widget.setGraphicsEffect(nullptr);
}

} // namespace quor::toolkit
