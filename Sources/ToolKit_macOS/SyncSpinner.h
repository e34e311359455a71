// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit_macOS/SpinnerImageView.h"

#include <QVariantAnimation>
#include <QWidget>

namespace quor::toolkit {

enum class SpinnerType { normal = 0, small = 1 };

/// A mark that turns while work goes on. It is as large as its image, and turns only while it can
/// be seen: hidden it costs nothing. Main thread only.
class SyncSpinner final : public QWidget {
    Q_OBJECT

public:
    explicit SyncSpinner(SpinnerType type, QWidget* parent = nullptr);

    [[nodiscard]] SpinnerType type() const { return type_; }
    /// Holds the image view. A widget's y axis points down already, so it turns nothing itself.
    [[nodiscard]] QWidget& rotationView() { return *rotationView_; }
    [[nodiscard]] SpinnerImageView& imageView() { return *imageView_; }
    [[nodiscard]] const SpinnerImageView& imageView() const { return *imageView_; }

    /// Turns clockwise, once in `duration` seconds, over and over. What turns already goes on as it
    /// does. A duration that is not above 0 counts as 0.25.
    void startSpinning(double duration);
    /// The same, counterclockwise.
    void startSpinningReverse(double duration);
    /// Stands upright from now on, until started again.
    void stop();
    [[nodiscard]] bool isSpinning() const { return animation_.state() != QAbstractAnimation::Stopped; }

    [[nodiscard]] QSize sizeHint() const override { return imageView_->size(); }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void start(double targetAngle, double duration);

    SpinnerType type_;
    QWidget* rotationView_;
    SpinnerImageView* imageView_;
    QVariantAnimation animation_;
};

} // namespace quor::toolkit
