// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormNumberInput.h"

#include "Platform/Text/NumberFormatter.h"

#include <utility>

namespace quor::formkit {

void FormNumberInput::setFormatter(std::shared_ptr<platform::NumberFormatter> formatter)
{
    const double number = value();
    formatter_ = std::move(formatter);
    setValue(number);
}

QString FormNumberInput::textOf(double number) const
{
    const QString text = formatter_ ? formatter_->string(number) : QString();
    return text.isEmpty() ? QStringLiteral("0") : text;
}

double FormNumberInput::numberIn(const QString& text) const
{
    return formatter_ ? formatter_->number(text.trimmed()).value_or(0) : 0;
}

} // namespace quor::formkit
