// SPDX-License-Identifier: MIT
#include "Platform/Text/NumberFormatter.h"

#include <QByteArray>

#include <unicode/unum.h>

#include <algorithm>
#include <cmath>

namespace quor::platform {

namespace {

constexpr int mostDigits = 340; // what a double can have

struct CloseFormat {
    void operator()(UNumberFormat* format) const { unum_close(format); }
};

} // namespace

class NumberFormatter::Format {
public:
    explicit Format(const QLocale& locale)
        : locale_(locale.bcp47Name().toLatin1())
    {
    }
    Format(const Format& other)
        : minimum(other.minimum)
        , maximum(other.maximum)
        , locale_(other.locale_)
    {
    }

    /// Set to the digits as they stand now. Null if ICU has no data.
    UNumberFormat* get()
    {
        UErrorCode status = U_ZERO_ERROR;
        if (!format_)
            format_.reset(unum_open(UNUM_DECIMAL, nullptr, 0, locale_.constData(), nullptr, &status));
        if (!format_)
            return nullptr;
        unum_setAttribute(format_.get(), UNUM_ROUNDING_MODE, UNUM_ROUND_HALFEVEN);
        unum_setAttribute(format_.get(), UNUM_MIN_FRACTION_DIGITS, minimum);
        unum_setAttribute(format_.get(), UNUM_MAX_FRACTION_DIGITS, maximum);
        return format_.get();
    }

    QString string(double value)
    {
        UErrorCode status = U_ZERO_ERROR;
        UNumberFormat* const format = get();
        QString text(64, Qt::Uninitialized);
        const auto write = [&] {
            status = U_ZERO_ERROR;
            return format ? unum_formatDouble(format, value, reinterpret_cast<UChar*>(text.data()),
                       static_cast<int32_t>(text.size()), nullptr, &status)
                          : 0;
        };
        text.resize(write());
        if (status == U_BUFFER_OVERFLOW_ERROR)
            write();
        return U_SUCCESS(status) ? text : QString();
    }

    int minimum = 0;
    int maximum = 3;

private:
    QByteArray locale_;
    std::unique_ptr<UNumberFormat, CloseFormat> format_;
};

NumberFormatter::NumberFormatter(const QLocale& locale)
    : format_(std::make_unique<Format>(locale))
{
}

NumberFormatter::~NumberFormatter() = default;

NumberFormatter::NumberFormatter(const NumberFormatter& other)
    : format_(std::make_unique<Format>(*other.format_))
{
}

NumberFormatter& NumberFormatter::operator=(const NumberFormatter& other)
{
    if (this != &other)
        format_ = std::make_unique<Format>(*other.format_);
    return *this;
}

int NumberFormatter::minimumFractionDigits() const
{
    return format_->minimum;
}

int NumberFormatter::maximumFractionDigits() const
{
    return format_->maximum;
}

void NumberFormatter::setMinimumFractionDigits(int digits)
{
    format_->minimum = std::clamp(digits, 0, mostDigits);
    format_->maximum = std::max(format_->maximum, format_->minimum);
}

void NumberFormatter::setMaximumFractionDigits(int digits)
{
    format_->maximum = std::clamp(digits, 0, mostDigits);
    format_->minimum = std::min(format_->minimum, format_->maximum);
}

QString NumberFormatter::string(double value) const
{
    if (!std::isfinite(value))
        return {};
    QString magnitude = format_->string(std::fabs(value));
    // ICU writes "-0" for what is below zero and rounds to it.
    if (!std::signbit(value) || magnitude == format_->string(0))
        return magnitude;
    return format_->string(value);
}

std::optional<double> NumberFormatter::number(const QString& text) const
{
    UNumberFormat* const format = format_->get();
    if (!format)
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    int32_t read = 0;
    const double value = unum_parseDouble(format, reinterpret_cast<const UChar*>(text.utf16()),
        static_cast<int32_t>(text.size()), &read, &status);
    // A parse stops early without an error.
    if (U_FAILURE(status) || read != text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

} // namespace quor::platform
