// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

#include <memory>

namespace quor::platform {
class NumberFormatter;
}

namespace quor::formkit {

/// An input of a number.
class FormElementNumberInput : public virtual FormElement {
public:
    /// Turns the number into text and back. Null at first. Without a formatter the number is always 0.
    [[nodiscard]] virtual std::shared_ptr<platform::NumberFormatter> formatter() const = 0;
    virtual void setFormatter(std::shared_ptr<platform::NumberFormatter> formatter) = 0;

    /// As the formatter reads the text. 0 at first, and while the text is not a number.
    [[nodiscard]] virtual double value() const = 0;
    virtual void setValue(double value) = 0;
};

} // namespace quor::formkit
