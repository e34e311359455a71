// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormColorPicker.h"

#include "Platform/Lifetime/WhileAlive.h"

#include <QHBoxLayout>

#include <utility>

namespace quor::formkit {

void FormColorPicker::setup()
{
    constexpr int spacing = 6;
    auto* const layout = new QHBoxLayout(container_.get());
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addWidget(colorWell_, 0, Qt::AlignTop);
    layout->addWidget(colorRow_, 1);
    const auto chosen = platform::whileAlive(*this, [this](const QColor& color) { choose(color); });
    QObject::connect(colorWell_, &ColorWell::colorChosen, colorWell_, chosen);
    QObject::connect(colorRow_, &ColorRow::colorClicked, colorRow_, chosen);
    QObject::connect(colorRow_, &ColorRow::customColorClicked, colorWell_, &ColorWell::openChooser);
    setColorModel(std::move(colorModel_));
    setValue(colorModel_.color(0));
}

void FormColorPicker::setColorModel(toolkit::ColorModel colorModel)
{
    colorModel_ = std::move(colorModel);
    if (!container_)
        return;
    std::vector<QColor> colors;
    for (std::size_t index = 0; index < colorModel_.colors.size(); ++index)
        colors.push_back(colorModel_.color(static_cast<int>(index)));
    colorRow_->setColors(colors);
    colorRow_->select(value_);
}

void FormColorPicker::setValue(const QColor& value)
{
    value_ = value;
    if (!container_)
        return;
    colorWell_->setColor(value);
    colorRow_->select(value);
}

void FormColorPicker::choose(const QColor& color)
{
    setValue(color);
    setHasChanges(true);
    notifyValueChanged();
}

void FormColorPicker::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (container_)
        container_->setEnabled(enabled);
}

} // namespace quor::formkit
