// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/MoneyFormatter.h"

#include "Platform/Text/ICUText.h"
#include "ToolKit/Formatting/ICULocale.h"
#include "ToolKit/Formatting/LocaleFacts.h"
#include "ToolKit/Formatting/TypedNumber.h"

#include <QLocale>
#include <QStringList>

#include <unicode/currunit.h>
#include <unicode/dcfmtsym.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

using Symbols = icu::DecimalFormatSymbols;

bool isCurrencyCode(const QString& code)
{
    return code.size() == 3 && std::all_of(code.begin(), code.end(), [](QChar letter) {
        return letter.unicode() < 0x80 && letter.isLetter();
    });
}

bool isMark(QChar character)
{
    return character == u'.' || character == u',';
}

bool isDash(QChar character)
{
    return character == u'\u2212' || character.category() == QChar::Punctuation_Dash;
}

QString withoutBlanks(QString text)
{
    return text.remove(u' ');
}

QStringList names(const icu::Locale& locale, const QString& code)
{
    icu::UnicodeString units = platform::icuText(code);
    QStringList names{withoutBlanks(folded(code))};
    for (const auto style : {UCURR_SYMBOL_NAME, UCURR_NARROW_SYMBOL_NAME, UCURR_FORMAL_SYMBOL_NAME,
             UCURR_VARIANT_SYMBOL_NAME, UCURR_LONG_NAME}) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = 0;
        const UChar* const name
            = ucurr_getName(units.getTerminatedBuffer(), locale.getName(), style, nullptr, &length, &status);
        if (U_SUCCESS(status))
            names += withoutBlanks(folded(QStringView(name, length).toString()));
    }
    return names;
}

/// Whether negative amounts stand in parentheses in the locale's accounts.
bool hasParentheses(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(locale, UNUM_CURRENCY_ACCOUNTING, status));
    icu::UnicodeString text;
    return U_SUCCESS(status) && format->format(-1.0, text).indexOf(u'(') >= 0;
}

/// Some locales group the digits of money in another way than those of plain numbers.
void takeGroupingOfMoney(const icu::Locale& locale, const std::unique_ptr<icu::DecimalFormat>& format)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> money(
        icu::NumberFormat::createInstance(locale, UNUM_CURRENCY, status));
    const auto* const rules = dynamic_cast<const icu::DecimalFormat*>(money.get());
    if (!rules || !format)
        return;
    format->setGroupingSize(rules->getGroupingSize());
    format->setSecondaryGroupingSize(rules->getSecondaryGroupingSize());
}

/// The parts of a typed amount, all folded.
struct TypedAmount {
    explicit TypedAmount(const QString& text);

    QString before; ///< without blanks, as `after`
    QString number; ///< from the first digit, or the decimal mark before it, to the last digit
    QString after;
};

TypedAmount::TypedAmount(const QString& text)
{
    const QString given = folded(text);
    const auto isDigit = [](QChar character) { return character.isDigit(); };
    auto first = std::find_if(given.begin(), given.end(), isDigit);
    const auto last = std::find_if(given.rbegin(), given.rend(), isDigit).base();
    if (first == given.end())
        return;
    // ".5", but not "Rs.5".
    const auto canPrecedeNumber = [](QChar character) {
        return character == u' ' || character == u'(' || character == u'+' || isDash(character)
            || character.category() == QChar::Symbol_Currency;
    };
    if (first != given.begin() && isMark(first[-1])
        && (first - 1 == given.begin() || canPrecedeNumber(first[-2])))
        --first;
    before = withoutBlanks(QString(given.begin(), first - given.begin()));
    number = QString(first, last - first);
    after = withoutBlanks(QString(last, given.end() - last));
    // "12,-" is a round amount, and "12," one whose end is still missing.
    if (!after.isEmpty() && isMark(after.front())) {
        const bool isRound = after.size() > 1 && isDash(after[1]);
        if (isRound || after.size() == 1)
            after.remove(0, isRound ? 2 : 1);
    }
}

/// Of a text that has only digits and marks.
std::optional<double> foreignNumber(QString text)
{
    bool isNumber = false;
    double number = QLocale::c().toDouble(text, &isNumber);
    if (!isNumber) {
        const auto last = std::find_if(text.rbegin(), text.rend(), isMark);
        if (last == text.rend() || text.count(*last) > 1)
            return std::nullopt;
        const auto place = text.rend() - last - 1;
        number
            = (text.left(place).remove(u'.').remove(u',') + u'.' + text.mid(place + 1)).toDouble(&isNumber);
    }
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace

/// The rules of one locale for one currency, or for none.
class MoneyFormatter::Rules {
public:
    explicit Rules(const QString& localeIdentifier)
        : locale_(icuLocale(localeIdentifier))
        , plain_(strictFormat(locale_))
        , hasParentheses_(hasParentheses(locale_))
    {
    }

    void setCurrency(const QString& code)
    {
        using icu::number::Precision;
        writer_ = icu::number::NumberFormatter::withLocale(locale_)
                      .roundingMode(UNUM_ROUND_HALFEVEN)
                      .sign(UNUM_SIGN_NEGATIVE);
        monetary_ = plain_ ? std::make_unique<icu::DecimalFormat>(*plain_) : nullptr;
        names_.clear();
        if (code.isEmpty()) {
            writer_ = std::move(writer_).precision(Precision::maxFraction(3));
            return;
        }
        UErrorCode status = U_ZERO_ERROR;
        const icu::CurrencyUnit unit(platform::icuText(code).getTerminatedBuffer(), status);
        writer_ = std::move(writer_).unit(unit).precision(Precision::currency(UCURR_USAGE_STANDARD));
        names_ = names(locale_, code);
        // Some locales write money with other marks than plain numbers.
        auto symbols = std::make_unique<Symbols>(locale_, status);
        symbols->setCurrency(unit.getISOCurrency(), status);
        for (const auto& [mark, monetaryMark] :
            {std::pair(Symbols::kDecimalSeparatorSymbol, Symbols::kMonetarySeparatorSymbol),
                {Symbols::kGroupingSeparatorSymbol, Symbols::kMonetaryGroupingSeparatorSymbol}})
            symbols->setSymbol(mark, symbols->getConstSymbol(monetaryMark));
        if (U_SUCCESS(status) && monetary_)
            monetary_->adoptDecimalFormatSymbols(symbols.release());
        takeGroupingOfMoney(locale_, monetary_);
    }

    [[nodiscard]] QString string(double amount) const
    {
        UErrorCode status = U_ZERO_ERROR;
        const icu::UnicodeString text = writer_.formatDouble(amount, status).toString(status);
        return U_SUCCESS(status) ? platform::qtText(text) : QString::number(amount, 'f');
    }

    /// The amount if there is nothing but it in the text.
    [[nodiscard]] std::optional<double> wholeAmount(TypedAmount text) const
    {
        bool isNegative = false;
        if (hasParentheses_ && text.before.contains(u'(') && text.after.contains(u')')) {
            text.before.remove(text.before.indexOf(u'('), 1);
            text.after.remove(text.after.indexOf(u')'), 1);
            isNegative = true;
        }
        for (QString* const side : {&text.before, &text.after}) {
            const auto sign = std::find_if(side->begin(), side->end(),
                [](QChar character) { return isDash(character) || character == u'+'; });
            if (sign == side->end())
                continue;
            if (isNegative)
                return std::nullopt;
            isNegative = *sign != u'+';
            side->remove(sign - side->begin(), 1);
        }
        for (const QString& side : {text.before, text.after}) {
            if (!side.isEmpty() && !names_.contains(side))
                return std::nullopt;
        }
        auto number = monetary_ ? strictNumber(text.number, *monetary_) : std::nullopt;
        if (!number)
            number = plainNumber(text.number);
        return number && isNegative ? -*number : number;
    }

    [[nodiscard]] std::optional<double> plainNumber(const QString& text) const
    {
        return plain_ ? strictNumber(text, *plain_) : std::nullopt;
    }

private:
    icu::Locale locale_;
    std::unique_ptr<icu::DecimalFormat> plain_; ///< null if ICU has no data, as `monetary_`
    std::unique_ptr<icu::DecimalFormat> monetary_;
    bool hasParentheses_;
    icu::number::LocalizedNumberFormatter writer_;
    QStringList names_; ///< of the currency, folded, without blanks
};

MoneyFormatter::MoneyFormatter(const QString& localeIdentifier)
    : rules_(
        std::make_unique<Rules>(localeIdentifier.isEmpty() ? toolkit::localeIdentifier() : localeIdentifier))
{
    rules_->setCurrency(currencyCode_);
}

MoneyFormatter::~MoneyFormatter() = default;

void MoneyFormatter::setCurrencyCode(const QString& currencyCode)
{
    if (currencyCode == currencyCode_)
        return;
    currencyCode_ = currencyCode;
    rules_->setCurrency(isCurrencyCode(currencyCode) ? currencyCode.toUpper() : QString());
}

QString MoneyFormatter::string(double amount) const
{
    return rules_->string(std::isfinite(amount) ? amount : 0);
}

std::optional<double> MoneyFormatter::amount(const QString& text) const
{
    if (text.size() > longestTypedNumber)
        return std::nullopt;
    const TypedAmount typed(text);
    if (typed.number.isEmpty())
        return std::nullopt;
    if (const auto amount = rules_->wholeAmount(typed))
        return amount;
    QString digits = typed.number;
    digits.removeIf(
        [](QChar character) { return !isMark(character) && (character < u'0' || character > u'9'); });
    const auto number = rules_->plainNumber(digits);
    return number ? number : foreignNumber(digits);
}

} // namespace quor::toolkit
