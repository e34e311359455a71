// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit_macOS/SpinnerImageView.h"

#include <QVariantAnimation>
#include <QWidget>

namespace quor::toolkit {

enum class SpinnerType { normal = 0, small = 1 };

/// A mark that turns while work goes on. As large as its image. While it is hidden the animation pauses,
/// so that it costs nothing. Main thread only.
class SyncSpinner final : public QWidget {
    Q_OBJECT

public:
    explicit SyncSpinner(SpinnerType type, QWidget* parent = nullptr);

    [[nodiscard]] SpinnerType type() const { return type_; }
    /// Contains the image view. Does not turn itself.
    [[nodiscard]] QWidget& rotationView() { return *rotationView_; }
    [[nodiscard]] SpinnerImageView& imageView() { return *imageView_; }
    [[nodiscard]] const SpinnerImageView& imageView() const { return *imageView_; }

    /// Turns clockwise until `stop`, once in `duration` seconds, which is at most a day. If `duration` is not
    /// above 0, turns once in 0.25 seconds. Ignored while the spinner turns already, in either direction.
    void startSpinning(double duration);
    /// As `startSpinning`, but turns counterclockwise.
    void startSpinningReverse(double duration);
    /// Ends the turning, and sets the angle to 0.
    void stop();
    /// Returns true until `stop`, also while the spinner is hidden.
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
