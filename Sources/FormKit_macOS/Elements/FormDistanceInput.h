// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDistanceInput.h"
#include "FormKit_macOS/Elements/NumericInput.h"
#include "ToolKit/Formatting/DistanceFormatter.h"

namespace quor::formkit {

/// An input of a distance in kilometres or miles, with at most 2 fraction digits.
class FormDistanceInput final : public NumericInput, public FormElementDistanceInput {
public:
    using NumericInput::NumericInput;

    [[nodiscard]] double value() const override { return shownNumber(); }
    void setValue(double value) override { showNumber(value); }

protected:
    [[nodiscard]] QString textOf(double number) const override { return formatter_.string(number); }
    [[nodiscard]] double numberIn(const QString& text) const override { return formatter_.distance(text); }

private:
    toolkit::DistanceFormatter formatter_;
};

} // namespace quor::formkit
