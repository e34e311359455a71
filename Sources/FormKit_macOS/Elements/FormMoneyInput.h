// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementMoneyInput.h"
#include "FormKit_macOS/Elements/NumericInput.h"
#include "ToolKit/Formatting/MoneyFormatter.h"

namespace quor::formkit {

/// An input of an amount of money. It keeps the locale that is the default one when it is made.
class FormMoneyInput final : public NumericInput, public FormElementMoneyInput {
public:
    using NumericInput::NumericInput;

    [[nodiscard]] QString currencyCode() const override { return moneyFormatter_.currencyCode(); }
    void setCurrencyCode(const QString& currencyCode) override
    {
        const double amount = value();
        moneyFormatter_.setCurrencyCode(currencyCode);
        setValue(amount);
    }
    [[nodiscard]] double value() const override { return shownNumber(); }
    void setValue(double value) override { showNumber(value); }

protected:
    [[nodiscard]] QString textOf(double number) const override { return moneyFormatter_.string(number); }
    [[nodiscard]] double numberIn(const QString& text) const override
    {
        return moneyFormatter_.amount(text).value_or(0);
    }

private:
    toolkit::MoneyFormatter moneyFormatter_;
};

} // namespace quor::formkit
