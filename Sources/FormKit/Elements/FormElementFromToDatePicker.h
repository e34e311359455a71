// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDatePicker.h"

namespace quor::formkit {

/// An input of two dates, the second of which is never before the first.
class FormElementFromToDatePicker : public virtual FormElement {
public:
    [[nodiscard]] virtual std::optional<platform::Date> fromValue() const = 0;
    virtual void setFromValue(std::optional<platform::Date> value) = 0;
    [[nodiscard]] virtual std::optional<platform::Date> toValue() const = 0;
    virtual void setToValue(std::optional<platform::Date> value) = 0;

    [[nodiscard]] virtual platform::Date fromPromptValue() const = 0;
    virtual void setFromPromptValue(platform::Date promptValue) = 0;
    [[nodiscard]] virtual platform::Date toPromptValue() const = 0;
    virtual void setToPromptValue(platform::Date promptValue) = 0;

    /// The text between the two inputs.
    [[nodiscard]] virtual QString toText() const = 0;
    virtual void setToText(const QString& text) = 0;

    [[nodiscard]] virtual DatePickerMode mode() const = 0;
    virtual void setMode(DatePickerMode mode) = 0;

    [[nodiscard]] virtual bool showsClearButton() const = 0;
    virtual void setShowsClearButton(bool showsClearButton) = 0;
};

} // namespace quor::formkit
