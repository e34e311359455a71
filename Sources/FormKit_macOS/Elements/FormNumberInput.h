// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementNumberInput.h"
#include "FormKit_macOS/Elements/NumericInput.h"

namespace quor::formkit {

/// An input of a number, as its formatter writes it.
class FormNumberInput final : public NumericInput, public FormElementNumberInput {
public:
    using NumericInput::NumericInput;

    [[nodiscard]] std::shared_ptr<platform::NumberFormatter> formatter() const override { return formatter_; }
    /// Shows the number again, as the new formatter writes it.
    void setFormatter(std::shared_ptr<platform::NumberFormatter> formatter) override;
    [[nodiscard]] double value() const override { return shownNumber(); }
    void setValue(double value) override { showNumber(value); }

protected:
    [[nodiscard]] QString textOf(double number) const override;
    [[nodiscard]] double numberIn(const QString& text) const override;

private:
    std::shared_ptr<platform::NumberFormatter> formatter_;
};

} // namespace quor::formkit
