// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/ProgressAlert.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr int steps = 1000; // more than the bar has pixels
constexpr QSize barSize(200, 20);

} // namespace

ProgressAlert::ProgressAlert(QObject* parent)
    : WarningAlert(parent)
    , progressBar_(std::make_unique<QProgressBar>())
{
    const auto texts = platform::Bundle::named(u"Cabinet_ToolKit_macOS"_s);
    progressBar_->setAccessibleName(texts.localizedString(u"ProgressAlertBar"_s));
    progressBar_->setTextVisible(false);
    progressBar_->setFixedSize(barSize);
    progressBar_->setRange(0, steps);
    progressBar_->setValue(0);
}

void ProgressAlert::show(const QString& message, const QString& iconName, const QString& informativeText,
    const QString& buttonTitle, Handler handler, const std::optional<platform::Bundle>& images,
    platform::WindowServer* windowServer)
{
    WarningAlert::show({.message = message,
                           .iconName = iconName,
                           .informativeText = informativeText,
                           .buttonTitle = buttonTitle,
                           .accessoryView = progressBar_.get(),
                           .images = images,
                           .windowServer = windowServer},
        std::move(handler));
}

void ProgressAlert::update(const QString& text, double progress)
{
    if (Alert* shown = alert())
        shown->setInformativeText(text);
    if (progress < 0) {
        progressBar_->setRange(0, 0);
        return;
    }
    progressBar_->setRange(0, steps);
    const double share = progress > 0 ? std::min(progress, 1.0) : 0; // also 0 for NaN
    progressBar_->setValue(static_cast<int>(std::lround(share * steps)));
}

bool ProgressAlert::isIndeterminate() const
{
    return progressBar_->maximum() == 0;
}

double ProgressAlert::value() const
{
    return isIndeterminate() ? 0 : progressBar_->value() / double{steps};
}

} // namespace quor::toolkit
