// SPDX-License-Identifier: MIT
#include "Platform/Text/NumberFormatter.h"

#include "Platform/Text/ICUText.h"

#include <unicode/unum.h>

#include <algorithm>
#include <cmath>

namespace quor::platform {

namespace {

constexpr int mostDigits = 340; // of a double
constexpr qsizetype longestText = 1000; // no number needs more, and ICU takes quadratic time for digits

struct CloseFormat {
    void operator()(UNumberFormat* format) const { unum_close(format); }
};

} // namespace

class NumberFormatter::Format {
public:
    explicit Format(const QByteArray& locale)
    {
        UErrorCode status = U_ZERO_ERROR;
        format_.reset(unum_open(UNUM_DECIMAL, nullptr, 0, locale.constData(), nullptr, &status));
        if (format_)
            unum_setAttribute(format_.get(), UNUM_ROUNDING_MODE, UNUM_ROUND_HALFEVEN);
    }

    void setFractionDigits(int minimum, int maximum)
    {
        if (!format_)
            return;
        unum_setAttribute(format_.get(), UNUM_MIN_FRACTION_DIGITS, minimum);
        unum_setAttribute(format_.get(), UNUM_MAX_FRACTION_DIGITS, maximum);
    }

    [[nodiscard]] QString string(double value) const
    {
        return textFromICU([&](UChar* buffer, int32_t capacity, UErrorCode* status) {
            return format_ ? unum_formatDouble(format_.get(), value, buffer, capacity, nullptr, status) : 0;
        });
    }

    void setUsesGroupingSeparator(bool uses)
    {
        if (format_)
            unum_setAttribute(format_.get(), UNUM_GROUPING_USED, uses);
    }

    [[nodiscard]] std::optional<double> number(QStringView text) const
    {
        if (!format_ || text.size() > longestText)
            return std::nullopt;
        UErrorCode status = U_ZERO_ERROR;
        int32_t read = 0;
        const double value = unum_parseDouble(
            format_.get(), text.utf16(), static_cast<int32_t>(text.size()), &read, &status);
        // A parse stops early without an error.
        const bool isNumber = U_SUCCESS(status) && read == text.size() && std::isfinite(value);
        return isNumber ? std::optional(value) : std::nullopt;
    }

private:
    std::unique_ptr<UNumberFormat, CloseFormat> format_; ///< null if ICU has no data
};

NumberFormatter::NumberFormatter(const QLocale& locale)
    : locale_(locale.bcp47Name().toLatin1())
{
}

NumberFormatter::~NumberFormatter() = default;

void NumberFormatter::setMinimumFractionDigits(int digits)
{
    minimum_ = std::clamp(digits, 0, mostDigits);
    maximum_ = std::max(maximum_, minimum_);
}

void NumberFormatter::setMaximumFractionDigits(int digits)
{
    maximum_ = std::clamp(digits, 0, mostDigits);
    minimum_ = std::min(minimum_, maximum_);
}

QString NumberFormatter::string(double value) const
{
    if (!std::isfinite(value))
        return {};
    const Format& rules = format();
    QString magnitude = rules.string(std::fabs(value));
    // ICU writes "-0" for a negative number that rounds to zero.
    if (!std::signbit(value) || magnitude == rules.string(0))
        return magnitude;
    return rules.string(value);
}

std::optional<double> NumberFormatter::number(const QString& text) const
{
    return format().number(text);
}

NumberFormatter::Format& NumberFormatter::format() const
{
    if (!format_)
        format_ = std::make_unique<Format>(locale_);
    format_->setFractionDigits(minimum_, maximum_);
    format_->setUsesGroupingSeparator(usesGroupingSeparator_);
    return *format_;
}

} // namespace quor::platform
