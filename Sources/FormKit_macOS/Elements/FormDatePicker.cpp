// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormDatePicker.h"

#include "Platform/Lifetime/WhileAlive.h"

namespace quor::formkit {

FormDatePicker::~FormDatePicker()
{
    // The view loses the keyboard when it goes, and then takes what was being typed.
    if (datePicker_)
        datePicker_->setValueChanged({});
}

void FormDatePicker::setup()
{
    datePicker_->setValueChanged(platform::whileAlive(*this, [this](DatePickerView&) {
        setHasChanges(true);
        notifyValueChanged();
    }));
}

void FormDatePicker::setMode(DatePickerMode mode)
{
    mode_ = mode;
    if (datePicker_)
        datePicker_->setMode(mode);
}

void FormDatePicker::setShowsClearButton(bool showsClearButton)
{
    showsClearButton_ = showsClearButton;
    if (datePicker_)
        datePicker_->setShowsClearButton(showsClearButton);
}

std::optional<platform::Date> FormDatePicker::value() const
{
    return datePicker_ ? datePicker_->value() : std::nullopt;
}

void FormDatePicker::setValue(std::optional<platform::Date> value)
{
    if (datePicker_)
        datePicker_->setValue(value);
}

platform::Date FormDatePicker::promptValue() const
{
    return datePicker_ ? datePicker_->promptValue() : platform::Date();
}

void FormDatePicker::setPromptValue(platform::Date promptValue)
{
    if (datePicker_)
        datePicker_->setPromptValue(promptValue);
}

void FormDatePicker::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (datePicker_)
        datePicker_->setOperable(enabled);
}

std::vector<QWidget*> FormDatePicker::focusableViews() const
{
    return datePicker_ ? datePicker_->pickers() : std::vector<QWidget*>();
}

} // namespace quor::formkit
