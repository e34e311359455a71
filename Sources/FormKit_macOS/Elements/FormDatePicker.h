// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDatePicker.h"
#include "FormKit_macOS/Controls/DatePickerView.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// An input of a date, a time of day or both.
class FormDatePicker final : public FormBase, public FormElementDatePicker {
public:
    using FormBase::FormBase;
    ~FormDatePicker() override;

    [[nodiscard]] DatePickerMode mode() const override { return mode_; }
    void setMode(DatePickerMode mode) override;
    [[nodiscard]] bool showsClearButton() const override { return showsClearButton_; }
    void setShowsClearButton(bool showsClearButton) override;
    [[nodiscard]] std::optional<platform::Date> value() const override;
    void setValue(std::optional<platform::Date> value) override;
    [[nodiscard]] platform::Date promptValue() const override;
    void setPromptValue(platform::Date promptValue) override;

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return datePicker_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override;
    void setup() override;

private:
    platform::WidgetHandle<DatePickerView> datePicker_ = platform::makeWidget<DatePickerView>();
    DatePickerMode mode_ = DatePickerMode::date;
    bool showsClearButton_ = false;
};

} // namespace quor::formkit
