// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

#include <memory>
#include <optional>

namespace quor::platform {

/// Decimal numbers as the user's language writes and reads them, grouping included.
///
/// Rounds half to even. What rounds to zero has no sign. The language's rules are loaded by the first
/// call that needs them, and kept. A value: a copy formats alike and shares nothing. One object on
/// one thread at a time.
class NumberFormatter final {
public:
    /// Up to 3 fraction digits, as many as the number has.
    explicit NumberFormatter(const QLocale& locale = QLocale());
    ~NumberFormatter();
    NumberFormatter(const NumberFormatter& other);
    NumberFormatter& operator=(const NumberFormatter& other);

    [[nodiscard]] int minimumFractionDigits() const;
    [[nodiscard]] int maximumFractionDigits() const;
    /// Negative counts as 0; the other limit moves along where the two would cross.
    void setMinimumFractionDigits(int digits);
    void setMaximumFractionDigits(int digits);

    /// Empty for what is infinite or not a number.
    [[nodiscard]] QString string(double value) const;

    /// The number that the whole text says; none if any of it is left over, blanks too, or if it is
    /// no finite number.
    [[nodiscard]] std::optional<double> number(const QString& text) const;

private:
    class Format;

    std::unique_ptr<Format> format_; ///< never null
};

} // namespace quor::platform
