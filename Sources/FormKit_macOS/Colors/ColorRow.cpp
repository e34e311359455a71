// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Colors/ColorRow.h"

#include "FormKit_macOS/Colors/ColorButton.h"
#include "FormKit_macOS/Controls/RowStep.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "ToolKit/Colors/ColorOperations.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::formkit {

ColorRow::ColorRow(QWidget* parent)
    : QWidget(parent)
    , customColorButton_(new ColorButton(this))
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(FormMacOSResource::localizedString(u"FormColorSwatches"_s));
    customColorButton_->setColorImage(u"ColorChooserButton"_s);
    customColorButton_->setTitle(FormMacOSResource::localizedString(u"FormColorOther"_s));
    connect(customColorButton_, &QAbstractButton::clicked, this, [this] { click(count() - 1); });
}

void ColorRow::setColors(const std::vector<QColor>& colors)
{
    for (auto* const swatch : swatches_) {
        swatch->hide();
        swatch->setParent(nullptr);
        swatch->deleteLater(); // it may be emitting its click
    }
    swatches_.clear();
    for (const QColor& color : colors) {
        auto* const swatch = new ColorButton(this);
        swatch->setColor(color);
        swatch->stackUnder(customColorButton_); // screen readers follow this order
        connect(swatch, &QAbstractButton::clicked, this,
            [this, index = static_cast<int>(swatches_.size())] { click(index); });
        swatches_.push_back(swatch);
        swatch->setVisible(true);
    }
    setCurrent(std::min(current_, count() - 1));
    place();
    updateGeometry();
}

void ColorRow::select(const QColor& color)
{
    const auto isSame = [&](const ColorButton* swatch) {
        return color.isValid() && toolkit::hexColor(swatch->color()) == toolkit::hexColor(color);
    };
    const auto found = std::find_if(swatches_.begin(), swatches_.end(), isSame);
    for (auto* const swatch : swatches_)
        swatch->setChecked(found != swatches_.end() && swatch == *found);
    customColorButton_->setColor(color);
    customColorButton_->setChecked(color.isValid() && found == swatches_.end());
    if (!hasFocus())
        setCurrent(color.isValid() ? static_cast<int>(found - swatches_.begin()) : 0);
}

ColorButton& ColorRow::button(int index) const
{
    return index < count() - 1 ? *swatches_[static_cast<std::size_t>(index)] : *customColorButton_;
}

int ColorRow::side() const
{
    return customColorButton_->sizeHint().width();
}

int ColorRow::columns(int width) const
{
    return std::clamp(width / side(), 1, count());
}

int ColorRow::heightForWidth(int width) const
{
    const int perLine = columns(width);
    return (count() + perLine - 1) / perLine * side();
}

QSize ColorRow::sizeHint() const
{
    return {count() * side(), side()};
}

QSize ColorRow::minimumSizeHint() const
{
    return {side(), side()};
}

void ColorRow::place()
{
    const int perLine = columns(width());
    for (int index = 0; index < count(); ++index) {
        const QRect cell(index % perLine * side(), index / perLine * side(), side(), side());
        button(index).setGeometry(QStyle::visualRect(layoutDirection(), rect(), cell));
    }
}

void ColorRow::setCurrent(int index)
{
    current_ = index;
    for (int i = 0; i < count(); ++i)
        button(i).setCurrent(hasFocus() && i == index);
    if (hasFocus()) {
        QAccessibleEvent event(&button(index), QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void ColorRow::click(int index)
{
    setCurrent(index);
    if (index == count() - 1)
        Q_EMIT customColorClicked();
    else
        Q_EMIT colorClicked(button(index).color());
}

std::optional<int> ColorRow::step(int key) const
{
    const int perLine = columns(width());
    const int below = key == Qt::Key_Down ? perLine : key == Qt::Key_Up ? -perLine : 0;
    if (below == 0)
        return stepInRow(key, current_, count(), layoutDirection());
    const int next = current_ + below;
    return next >= 0 && next < count() ? std::optional(next) : std::nullopt;
}

void ColorRow::keyPressEvent(QKeyEvent* event)
{
    const bool isCustom = current_ == count() - 1;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Space || (isReturn && isCustom)) {
        if (!event->isAutoRepeat())
            click(current_);
        return;
    }
    const auto next = step(event->key());
    if (!next)
        QWidget::keyPressEvent(event);
    else if (*next == count() - 1)
        setCurrent(*next); // a key that only passes by opens nothing
    else if (*next != current_)
        click(*next);
}

void ColorRow::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    setCurrent(current_);
}

void ColorRow::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    setCurrent(current_);
}

void ColorRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    place();
}

void ColorRow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::LayoutDirectionChange || type == QEvent::FontChange || type == QEvent::StyleChange) {
        place();
        updateGeometry();
    }
}

} // namespace quor::formkit
