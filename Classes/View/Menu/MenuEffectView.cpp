// SPDX-License-Identifier: MIT
#include "View/Menu/MenuEffectView.h"

#include "Platform/Resources/Tinting.h"
#include "Platform/Services/WindowServer.h"

#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace quor::helper {

namespace {

constexpr double radius = 8;
constexpr double backgroundOpacity = 0.95; // what is behind shows faintly, and does not disturb reading
constexpr double edgeOpacity = 0.22;
constexpr double highContrast = 19; // of at most 21; ordinary palettes have less

/// Relative luminance as defined by WCAG 2, as is the contrast ratio below.
double luminance(const QColor& color)
{
    const auto linear = [](float value) {
        return value <= 0.04045F ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& color, const QColor& other)
{
    const auto [low, high] = std::minmax({luminance(color), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

} // namespace

MenuEffectView::MenuEffectView(platform::WindowServer& windowServer, QWidget* parent)
    : QWidget(parent)
    , windowServer_(windowServer)
    , composited_(windowServer.isCompositing())
    , compositing_(windowServer.observeCompositing([this] {
        composited_ = windowServer_.isCompositing();
        update();
    }))
{
}

void MenuEffectView::paintEvent(QPaintEvent*)
{
    const auto background = palette().color(QPalette::Window);
    const auto text = palette().color(QPalette::WindowText);
    const bool plain = contrast(background, text) >= highContrast;
    const double edge = 1 / devicePixelRatioF(); // one device pixel
    const QRectF frame = QRectF(rect()).adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2);
    const double corner = composited_ ? radius : 0;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, composited_);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (!composited_)
        painter.fillRect(rect(), background);
    painter.setPen(Qt::NoPen);
    painter.setBrush(composited_ && !plain ? platform::withAlpha(background, backgroundOpacity) : background);
    painter.drawRoundedRect(frame, corner, corner);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(plain ? text : platform::withAlpha(text, edgeOpacity), edge));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame, corner, corner);
}

} // namespace quor::helper
