// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormSlide.h"

#include <cmath>
#include <utility>

namespace quor::formkit {

namespace {

void moveTo(QWidget* view, double x)
{
    if (view)
        view->move(int(std::lround(x)), view->y());
}

} // namespace

FormSlide::FormSlide()
    : animation_(std::make_unique<QVariantAnimation>())
{
    animation_->setStartValue(0.0);
    animation_->setEndValue(1.0);
    animation_->setEasingCurve(QEasingCurve::OutQuad);
    QObject::connect(animation_.get(), &QVariantAnimation::valueChanged, animation_.get(),
        [this](const QVariant& value) { place(value.toDouble()); });
    // Queued, since the completion may end this object, and the animation with it. By then the next slide
    // may have started.
    QObject::connect(
        animation_.get(), &QVariantAnimation::finished, animation_.get(),
        [this] {
            if (animation_->state() == QAbstractAnimation::Stopped)
                finish();
        },
        Qt::QueuedConnection);
}

void FormSlide::start(QWidget& leaving, QWidget& arriving, Direction direction,
    std::chrono::milliseconds duration, std::function<void()> completed)
{
    leaving_ = &leaving;
    arriving_ = &arriving;
    direction_ = direction;
    completed_ = std::move(completed);
    leaving.setAttribute(Qt::WA_TransparentForMouseEvents, true);
    arriving.setAttribute(Qt::WA_TransparentForMouseEvents, false);
    place(0);
    arriving.show();
    arriving.raise();
    if (duration.count() == 0) {
        finish();
        return;
    }
    animation_->setDuration(int(duration.count()));
    animation_->start();
}

void FormSlide::finish()
{
    if (!isRunning())
        return;
    animation_->stop();
    place(1);
    if (leaving_)
        leaving_->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    std::exchange(completed_, nullptr)();
}

void FormSlide::place(double progress)
{
    const QWidget* parent = arriving_ ? arriving_->parentWidget() : nullptr;
    if (!isRunning() || !parent)
        return;
    const double width = parent->width() * (direction_ == Direction::toLeft ? -1 : 1);
    moveTo(leaving_, width * progress);
    moveTo(arriving_, width * (progress - 1));
}

} // namespace quor::formkit
