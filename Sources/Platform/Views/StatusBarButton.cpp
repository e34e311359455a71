// SPDX-License-Identifier: MIT
#include "Platform/Views/StatusBarButton.h"

#include <QChildEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace quor::platform {

namespace {

constexpr double highlightOpacity = 0.18;
constexpr double highlightRadius = 4;

QImage tinted(const QImage& mask, const QColor& color)
{
    auto image = mask.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(), image.deviceIndependentSize()), color);
    return image;
}

// Halves go down, as they do where a child is centred in whole pixels.
double wholeDevicePixel(double position, double scale)
{
    return std::ceil(position * scale - 0.5) / scale;
}

} // namespace

bool operator==(const TemplateImage& a, const TemplateImage& b)
{
    return a.isTemplate == b.isTemplate && a.pixels.devicePixelRatio() == b.pixels.devicePixelRatio()
        && a.pixels == b.pixels; // which looks at the bytes last
}

StatusBarButton::StatusBarButton(QWidget* parent)
    : QAbstractButton(parent)
    , backingScale_(devicePixelRatioF())
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(QGuiApplication::applicationDisplayName());
    // Presses with the pointer do not come this way, those of assistive tools do.
    connect(this, &QAbstractButton::clicked, this, &StatusBarButton::mouseDown);
}

void StatusBarButton::setImage(TemplateImage image)
{
    if (image == image_)
        return;
    const auto sizeBefore = sizeHint();
    image_ = std::move(image);
    tinted_ = {};
    if (sizeHint() != sizeBefore)
        updateGeometry();
    update();
}

QPointF StatusBarButton::imageOrigin() const
{
    const auto scale = devicePixelRatioF();
    const QPointF inWindow = mapTo(window(), QPoint());
    const auto room = QSizeF(size()) - image_.pixels.deviceIndependentSize();
    return {wholeDevicePixel(inWindow.x() + room.width() / 2, scale) - inWindow.x(),
        wholeDevicePixel(inWindow.y() + room.height() / 2, scale) - inWindow.y()};
}

void StatusBarButton::setTintColor(const QColor& color)
{
    if (color == tint_)
        return;
    tint_ = color;
    tinted_ = {};
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
    const auto size = image_.pixels.deviceIndependentSize();
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}

bool StatusBarButton::event(QEvent* event)
{
    if (event->type() == QEvent::ScreenChangeInternal)
        checkBackingScale();
    return QAbstractButton::event(event);
}

void StatusBarButton::childEvent(QChildEvent* event)
{
    if (event->polished()) {
        if (auto* child = qobject_cast<QWidget*>(event->child()))
            child->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    QAbstractButton::childEvent(event);
}

void StatusBarButton::checkBackingScale()
{
    if (std::exchange(backingScale_, devicePixelRatioF()) != devicePixelRatioF())
        Q_EMIT backingScaleChanged();
}

const QImage& StatusBarButton::paintedImage()
{
    if (!image_.isTemplate)
        return image_.pixels;
    if (tinted_.isNull() && !image_.pixels.isNull())
        tinted_ = tinted(image_.pixels, tint_);
    return tinted_;
}

void StatusBarButton::paintEvent(QPaintEvent*)
{
    // Of a screen that changes its scale in place no event tells, but all is painted anew.
    if (devicePixelRatioF() != backingScale_)
        QMetaObject::invokeMethod(this, &StatusBarButton::checkBackingScale, Qt::QueuedConnection);

    QPainter painter(this);
    if (highlighted_) {
        auto color = tint_;
        color.setAlphaF(float(highlightOpacity));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(rect(), highlightRadius, highlightRadius);
    }
    // Smooth only where the image was made for another scale; elsewhere pixel goes to pixel.
    const auto& image = paintedImage();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, image.devicePixelRatio() != devicePixelRatioF());
    painter.drawImage(imageOrigin(), image);
}

void StatusBarButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton)
        Q_EMIT mouseDown();
    else
        event->ignore();
}

// The base class would count press and release as a click.
void StatusBarButton::mouseReleaseEvent(QMouseEvent*) { }

void StatusBarButton::mouseMoveEvent(QMouseEvent* event)
{
    event->ignore();
}

} // namespace quor::platform
