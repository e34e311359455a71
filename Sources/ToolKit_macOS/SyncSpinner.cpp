// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/SyncSpinner.h"

#include "Platform/Resources/Bundle.h"

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

CoreImageFactory::ImageName imageOf(SpinnerType type)
{
    return type == SpinnerType::small ? CoreImageFactory::ImageName::syncSpinnerSmall
                                      : CoreImageFactory::ImageName::syncSpinner;
}

} // namespace

SyncSpinner::SyncSpinner(SpinnerType type, QWidget* parent)
    : QWidget(parent)
    , type_(type)
    , rotationView_(new QWidget(this))
    , imageView_(new SpinnerImageView(imageOf(type), rotationView_))
{
    const auto texts = platform::Bundle::named(u"Cabinet_ToolKit_macOS"_s);
    setAccessibleName(texts.localizedString(u"SyncSpinner"_s));
    imageView_->resize(imageView_->sizeHint());
    rotationView_->resize(imageView_->size());
    resize(imageView_->size());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&animation_, &QVariantAnimation::valueChanged, imageView_,
        [view = imageView_](const QVariant& angle) { view->setAngle(angle.toDouble()); });
}

void SyncSpinner::startSpinning(double duration)
{
    start(-2 * std::numbers::pi, duration);
}

void SyncSpinner::startSpinningReverse(double duration)
{
    start(2 * std::numbers::pi, duration);
}

void SyncSpinner::start(double targetAngle, double duration)
{
    if (isSpinning())
        return;
    constexpr double defaultDuration = 0.25; // seconds
    constexpr double longest = 86400;
    const double seconds = duration > 0 ? std::min(duration, longest) : defaultDuration;
    animation_.setStartValue(0.0);
    animation_.setEndValue(targetAngle);
    animation_.setDuration(std::max(static_cast<int>(std::lround(seconds * 1000)), 1));
    animation_.setLoopCount(-1);
    animation_.start();
    if (!isVisible())
        animation_.pause();
}

void SyncSpinner::stop()
{
    animation_.stop();
    imageView_->setAngle(0);
}

void SyncSpinner::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (animation_.state() == QAbstractAnimation::Paused)
        animation_.resume();
}

void SyncSpinner::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (animation_.state() == QAbstractAnimation::Running)
        animation_.pause();
}

void SyncSpinner::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const QSize free = size() - rotationView_->size();
    rotationView_->move(free.width() / 2, free.height() / 2);
}

} // namespace quor::toolkit
