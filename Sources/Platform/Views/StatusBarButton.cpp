// SPDX-License-Identifier: MIT
#include "Platform/Views/StatusBarButton.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <utility>

namespace quor::platform {

namespace {

constexpr double highlightOpacity = 0.18;
constexpr double highlightRadius = 4;

// Rounds halves down.
double wholeDevicePixel(double position, double scale)
{
    return std::ceil(position * scale - 0.5) / scale;
}

} // namespace

StatusBarButton::StatusBarButton(QWidget* parent)
    : QAbstractButton(parent)
    , backingScale_(devicePixelRatioF())
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(QGuiApplication::applicationDisplayName());
}

void StatusBarButton::setImage(TemplateImage image)
{
    if (image == image_)
        return;
    image_ = std::move(image);
    painted_ = {};
    update();
}

void StatusBarButton::setForeground(Foreground foreground)
{
    foreground_ = std::move(foreground);
    update();
}

QPointF StatusBarButton::imageOrigin() const
{
    const auto scale = devicePixelRatioF();
    const QPointF inWindow = mapTo(window(), QPoint());
    const auto room = QSizeF(size()) - image_.size();
    return {wholeDevicePixel(inWindow.x() + room.width() / 2, scale) - inWindow.x(),
        wholeDevicePixel(inWindow.y() + room.height() / 2, scale) - inWindow.y()};
}

void StatusBarButton::setTintColor(const QColor& color)
{
    if (color == tint_)
        return;
    tint_ = color;
    painted_ = {};
    if (image_.isTemplate || highlighted_)
        update();
}

void StatusBarButton::highlight(bool on)
{
    if (on == highlighted_)
        return;
    highlighted_ = on;
    update();
}

QSize StatusBarButton::sizeHint() const
{
    const auto size = image_.size();
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}

bool StatusBarButton::event(QEvent* event)
{
    if (event->type() == QEvent::ScreenChangeInternal)
        checkBackingScale();
    return QAbstractButton::event(event);
}

void StatusBarButton::checkBackingScale()
{
    if (std::exchange(backingScale_, devicePixelRatioF()) != devicePixelRatioF())
        Q_EMIT backingScaleChanged();
}

void StatusBarButton::paintEvent(QPaintEvent*)
{
    // No event reports a screen that changes its scale in place, but such a change repaints everything.
    if (devicePixelRatioF() != backingScale_)
        QMetaObject::invokeMethod(this, &StatusBarButton::checkBackingScale, Qt::QueuedConnection);

    QPainter painter(this);
    if (highlighted_) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(withAlpha(tint_, highlightOpacity));
        painter.drawRoundedRect(rect(), highlightRadius, highlightRadius);
    }
    if (painted_.isNull())
        painted_ = image_.shownIn(tint_);
    // Smooth only if the image was made for another scale; else each of its pixels is one of the screen.
    painter.setRenderHint(
        QPainter::SmoothPixmapTransform, painted_.devicePixelRatio() != devicePixelRatioF());
    painter.translate(imageOrigin());
    painter.drawImage(QPointF(), painted_);
    foreground_(painter, image_.size());
}

// The base class would take a press and a release for a click.
void StatusBarButton::mousePressEvent(QMouseEvent*) { }

} // namespace quor::platform
