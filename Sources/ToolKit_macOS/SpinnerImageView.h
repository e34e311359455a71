// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Drawing/CoreImageFactory.h"

#include <QWidget>

namespace quor::toolkit {

/// A view of one of the kit's images, turned about its centre. Clicks go through to the widget below it.
/// Main thread only.
class SpinnerImageView final : public QWidget {
    Q_OBJECT

public:
    explicit SpinnerImageView(CoreImageFactory::ImageName name, QWidget* parent = nullptr);

    /// The image's size in device-independent pixels. Empty if there is no such image.
    [[nodiscard]] QSize sizeHint() const override;

    /// The angle in radians, counterclockwise. The default is 0.
    [[nodiscard]] double angle() const { return angle_; }
    void setAngle(double radians);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CoreImageFactory::ImageName name_;
    QImage image_; // for the pixel ratio of the screen that it was last painted on
    double angle_ = 0;
};

} // namespace quor::toolkit
