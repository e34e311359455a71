// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"
#include "Platform/Calendar/Date.h"

#include <optional>

namespace quor::formkit {

enum class DatePickerMode { time, date, dateTime };

/// An input of a date, a time, or both.
class FormElementDatePicker : public virtual FormElement {
public:
    [[nodiscard]] virtual DatePickerMode mode() const = 0;
    virtual void setMode(DatePickerMode mode) = 0;

    /// Whether the user can choose that there is no date. False at first.
    [[nodiscard]] virtual bool showsClearButton() const = 0;
    virtual void setShowsClearButton(bool showsClearButton) = 0;

    /// `nullopt` at first.
    [[nodiscard]] virtual std::optional<platform::Date> value() const = 0;
    virtual void setValue(std::optional<platform::Date> value) = 0;

    /// Shown while there is no value.
    [[nodiscard]] virtual platform::Date promptValue() const = 0;
    virtual void setPromptValue(platform::Date promptValue) = 0;
};

} // namespace quor::formkit
