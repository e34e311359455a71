// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QString>

#include <memory>
#include <optional>

namespace quor::platform {

/// Writes and reads decimal numbers as the user's language does, with separators between groups of digits.
///
/// Rounds half to even; what rounds to zero has no sign. The first call loads the rules of the language; they
/// are kept. Use an object on one thread at a time.
class NumberFormatter final {
public:
    /// Writes from 0 to 3 fraction digits.
    explicit NumberFormatter(const QLocale& locale = QLocale());
    ~NumberFormatter();
    NumberFormatter(const NumberFormatter&) = delete;
    NumberFormatter& operator=(const NumberFormatter&) = delete;

    [[nodiscard]] int minimumFractionDigits() const { return minimum_; }
    [[nodiscard]] int maximumFractionDigits() const { return maximum_; }
    /// Clamped to 0 at least. Setting one limit beyond the other sets the other to the same value.
    void setMinimumFractionDigits(int digits);
    void setMaximumFractionDigits(int digits);

    [[nodiscard]] bool usesGroupingSeparator() const { return usesGroupingSeparator_; }
    /// Whether numbers are written with separators between groups of digits. True at first.
    void setUsesGroupingSeparator(bool uses) { usesGroupingSeparator_ = uses; }

    /// Returns an empty text for infinity and NaN.
    [[nodiscard]] QString string(double value) const;

    /// The number that the whole text says. Returns `nullopt` if a part of the text, be it a blank, is left
    /// over, if the number is not finite, and for texts of more than 1000 characters.
    [[nodiscard]] std::optional<double> number(const QString& text) const;

private:
    class Format;

    [[nodiscard]] Format& format() const;

    const QByteArray locale_;
    int minimum_ = 0;
    int maximum_ = 3;
    bool usesGroupingSeparator_ = true;
    mutable std::unique_ptr<Format> format_; ///< null before the first call
};

} // namespace quor::platform
