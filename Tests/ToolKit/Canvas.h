// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainter>

namespace quor::test {

/// A clear picture to draw on, and to ask where there is ink. All lengths are points.
class Canvas final {
public:
    explicit Canvas(QSize size = {200, 100}, double scale = 1)
        : image_(size * scale, QImage::Format_ARGB32_Premultiplied)
    {
        image_.setDevicePixelRatio(scale);
        image_.fill(Qt::transparent);
    }

    template <typename Draw>
    Canvas& draw(const Draw& draw)
    {
        QPainter painter(&image_);
        draw(painter);
        return *this;
    }

    [[nodiscard]] QColor at(double x, double y) const
    {
        const QPointF pixel = QPointF(x, y) * image_.devicePixelRatio();
        return image_.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
    }
    [[nodiscard]] bool hasInk(double x, double y) const { return at(x, y).alpha() > 127; }

    /// The smallest rectangle round every pixel of at least this alpha.
    [[nodiscard]] QRectF ink(int alpha = 64) const
    {
        QRect bounds;
        for (int y = 0; y < image_.height(); ++y)
            for (int x = 0; x < image_.width(); ++x)
                if (qAlpha(image_.pixel(x, y)) >= alpha)
                    bounds |= QRect(x, y, 1, 1);
        const double scale = image_.devicePixelRatio();
        return {bounds.topLeft() / scale, bounds.size() / scale};
    }

    [[nodiscard]] const QImage& image() const { return image_; }

private:
    QImage image_;
};

} // namespace quor::test
