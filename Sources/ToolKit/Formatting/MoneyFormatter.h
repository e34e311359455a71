// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <optional>

namespace quor::toolkit {

/// Writes amounts of money as a locale does, and reads what people type.
///
/// Reading a text that `string` returned returns the same amount, rounded to the digits of the currency. Use
/// an object on one thread at a time.
class MoneyFormatter final {
public:
    /// `localeIdentifier` has the form that the function of that name returns; empty for the default locale
    /// of now. The currency is the euro.
    explicit MoneyFormatter(const QString& localeIdentifier = QString());
    ~MoneyFormatter();
    MoneyFormatter(const MoneyFormatter&) = delete;
    MoneyFormatter& operator=(const MoneyFormatter&) = delete;

    [[nodiscard]] const QString& currencyCode() const { return currencyCode_; }
    /// An ISO 4217 code in upper or lower case. Without one, which is any text but three ASCII letters,
    /// amounts are numbers with at most 3 fraction digits.
    void setCurrencyCode(const QString& currencyCode);

    /// "1.234,50 €" or "JP¥1,235", with the digits of the currency, rounded half to even. What rounds to zero
    /// has no sign. Infinity and NaN are written as 0.
    [[nodiscard]] QString string(double amount) const;

    /// The amount that `text` says. The symbol or the code of the currency can stand at either side, or be
    /// missing; blanks do not matter. A minus sign can stand at either side of the number, and parentheses
    /// mean a negative amount if that is a form of the locale.
    ///
    /// A number that breaks the rules of the locale is read without all else in the text, also without its
    /// sign: by these rules, then by those of a programming language, then with its only comma or its only
    /// point, whichever is last, as the decimal mark. Thus "1.5" is one and a half in German, where "1.500"
    /// is fifteen hundred. Returns `nullopt` for a text without a number.
    [[nodiscard]] std::optional<double> amount(const QString& text) const;

private:
    class Rules;

    QString currencyCode_ = QStringLiteral("EUR");
    std::unique_ptr<Rules> rules_; ///< never null
};

} // namespace quor::toolkit
