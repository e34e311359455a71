// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/SpinnerImageView.h"

#include <QPainter>
#include <QtMath>

namespace quor::toolkit {

SpinnerImageView::SpinnerImageView(CoreImageFactory::ImageName name, QWidget* parent)
    : QWidget(parent)
    , name_(name)
    , image_(CoreImageFactory::image(name, false, devicePixelRatioF()).pixels)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QSize SpinnerImageView::sizeHint() const
{
    return image_.isNull() ? QSize(0, 0) : image_.deviceIndependentSize().toSize();
}

void SpinnerImageView::setAngle(double radians)
{
    if (radians == angle_)
        return;
    angle_ = radians;
    update();
}

void SpinnerImageView::paintEvent(QPaintEvent* /*event*/)
{
    if (image_.isNull())
        return;
    if (image_.devicePixelRatio() != devicePixelRatioF())
        image_ = CoreImageFactory::image(name_, false, devicePixelRatioF()).pixels;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(QRectF(rect()).center());
    painter.rotate(-qRadiansToDegrees(angle_)); // positive angles of a painter are clockwise
    const QSizeF size = image_.deviceIndependentSize();
    painter.drawImage(QPointF(-size.width() / 2, -size.height() / 2), image_);
}

} // namespace quor::toolkit
