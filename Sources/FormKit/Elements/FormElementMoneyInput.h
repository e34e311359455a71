// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// An input of an amount of money.
class FormElementMoneyInput : public virtual FormElement {
public:
    /// An ISO 4217 code. "EUR" at first. If it is empty, the amount is shown without a currency.
    [[nodiscard]] virtual QString currencyCode() const = 0;
    virtual void setCurrencyCode(const QString& currencyCode) = 0;

    /// In units of the currency, rounded to its digits when the field is left. 0 at first, and for a text
    /// without a number.
    [[nodiscard]] virtual double value() const = 0;
    virtual void setValue(double value) = 0;
};

} // namespace quor::formkit
