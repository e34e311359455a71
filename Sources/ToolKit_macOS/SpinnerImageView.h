// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Drawing/CoreImageFactory.h"

#include <QWidget>

namespace quor::toolkit {

/// One of the kit's images, turned about its middle. Takes no clicks. Main thread only.
class SpinnerImageView final : public QWidget {
    Q_OBJECT

public:
    explicit SpinnerImageView(CoreImageFactory::ImageName name, QWidget* parent = nullptr);

    /// In device-independent pixels; empty without an image.
    [[nodiscard]] QSize sizeHint() const override;

    /// In radians, counterclockwise as the eye sees it.
    [[nodiscard]] double angle() const { return angle_; }
    void setAngle(double radians);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CoreImageFactory::ImageName name_;
    QImage image_; // for the scale of the screen that it was last painted on
    double angle_ = 0;
};

} // namespace quor::toolkit
