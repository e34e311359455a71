// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/DateSections.h"

#include "Platform/Calendar/UserDateLocale.h"
#include "ToolKit/Dates/SharedCalendar.h"

#include <QDate>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

using Kind = DateSections::Kind;

constexpr int noonHour = 12;
constexpr int digitsOfYear = 4;

std::optional<Kind> kindOfLetter(QChar letter)
{
    switch (letter.unicode()) {
    case u'y':
        return Kind::year;
    case u'M':
    case u'L':
        return Kind::month;
    case u'd':
        return Kind::day;
    case u'H':
    case u'k':
        return Kind::hour;
    case u'h':
    case u'K':
        return Kind::hourOfTwelve;
    case u'm':
        return Kind::minute;
    case u'a':
    case u'b':
    case u'B':
        return Kind::dayPeriod;
    default:
        return std::nullopt;
    }
}

QString qtLetters(Kind kind)
{
    switch (kind) {
    case Kind::year:
        return u"yyyy"_s;
    case Kind::month:
        return u"MM"_s;
    case Kind::day:
        return u"dd"_s;
    case Kind::hour:
        return u"HH"_s;
    case Kind::hourOfTwelve:
        return u"hh"_s;
    case Kind::minute:
        return u"mm"_s;
    case Kind::dayPeriod:
        return u"AP"_s;
    }
    return {};
}

QString quoted(QString literal)
{
    return literal.isEmpty() ? literal : u'\'' + literal.replace(u'\'', "''"_L1) + u'\'';
}

/// The groups of digits in a text, as digits from 0 to 9.
QStringList numbers(const QString& text)
{
    QStringList groups;
    bool isInside = false;
    for (const QChar character : text) {
        const int digit = character.digitValue();
        if (digit >= 0 && !isInside)
            groups.emplaceBack();
        isInside = digit >= 0;
        if (isInside)
            groups.back().append(QChar(u'0' + digit));
    }
    return groups;
}

void setNumber(DateFields& fields, Kind kind, const QString& digits)
{
    const int number = digits.toInt();
    switch (kind) {
    case Kind::year:
        fields.year = yearOfDigits(digits, fields.year);
        break;
    case Kind::month:
        fields.month = number;
        break;
    case Kind::day:
        fields.day = number;
        break;
    case Kind::hour:
    case Kind::hourOfTwelve:
        fields.hour = number;
        break;
    case Kind::minute:
        fields.minute = number;
        break;
    case Kind::dayPeriod:
        break;
    }
}

bool isValid(const DateFields& fields)
{
    return fields.year > 0 && fields.month >= 1 && fields.month <= 12 && fields.day >= 1
        && fields.day <= daysOfMonth(fields.year, fields.month) && fields.hour < 24 && fields.minute < 60;
}

} // namespace

int yearOfDigits(const QString& digits, int year)
{
    constexpr int century = 100;
    const int number = digits.toInt();
    if (digits.size() > 2)
        return number;
    const int inCentury = year - year % century + number;
    if (inCentury - year > century / 2)
        return inCentury - century;
    return year - inCentury >= century / 2 ? inCentury + century : inCentury;
}

int daysOfMonth(int year, int month)
{
    return QDate(year, month, 1).daysInMonth();
}

DateSections DateSections::ofDate()
{
    return DateSections(u"yMMdd"_s);
}

DateSections DateSections::ofTime()
{
    return DateSections(u"jmm"_s);
}

DateSections::DateSections(const QString& skeleton)
    : locale_(platform::userDateLocale())
{
    platform::Calendar calendar = toolkit::calendar();
    calendar.setIdentifier("gregorian"_ba);
    const QString format = calendar.dateFormat(skeleton);
    bool isQuoted = false;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const QChar character = format[i];
        if (character == u'\'') {
            if (i + 1 < format.size() && format[i + 1] == u'\'') {
                after_ += u'\'';
                ++i;
            } else {
                isQuoted = !isQuoted;
            }
            continue;
        }
        const auto kind = isQuoted ? std::nullopt : kindOfLetter(character);
        if (!kind) {
            // Between the time and "PM" there may be a blank that no keyboard has.
            if (isQuoted || !character.isLetter())
                after_ += character == u'\u202F' ? QChar(u' ') : character;
            continue;
        }
        const qsizetype first = i;
        while (i + 1 < format.size() && format[i + 1] == character)
            ++i;
        const int leastDigits
            = *kind == Kind::year ? digitsOfYear : int(std::min<qsizetype>(i - first + 1, 2));
        sections_.push_back({*kind, leastDigits, std::exchange(after_, {})});
    }
}

QString DateSections::qtFormat() const
{
    QString format;
    for (const Section& section : sections_)
        format += quoted(section.before) + qtLetters(section.kind);
    return format + quoted(after_);
}

QString DateSections::localDigits(const QString& digits) const
{
    const char32_t zero = locale_.zeroDigit().toUcs4().value(0, U'0');
    QString local;
    for (const QChar digit : digits)
        local += QString::fromUcs4(std::array{char32_t(zero + digit.unicode() - u'0')}.data(), 1);
    return local;
}

QString DateSections::dayPeriod(bool isAfternoon) const
{
    return isAfternoon ? locale_.pmText() : locale_.amText();
}

QString DateSections::text(const DateFields& fields, Kind kind, int leastDigits) const
{
    const auto number
        = [&](int value) { return localDigits(QString::number(value).rightJustified(leastDigits, u'0')); };
    switch (kind) {
    case Kind::year:
        return number(fields.year);
    case Kind::month:
        return number(fields.month);
    case Kind::day:
        return number(fields.day);
    case Kind::hour:
        return number(fields.hour);
    case Kind::hourOfTwelve:
        return number(fields.hour % noonHour == 0 ? noonHour : fields.hour % noonHour);
    case Kind::minute:
        return number(fields.minute);
    case Kind::dayPeriod:
        return dayPeriod(fields.hour >= noonHour);
    }
    return {};
}

QString DateSections::text(const DateFields& fields) const
{
    QString text;
    for (const Section& section : sections_)
        text += section.before + this->text(fields, section.kind, section.leastDigits);
    return text + after_;
}

std::optional<DateFields> DateSections::read(const QString& text, const DateFields& fields) const
{
    constexpr qsizetype longest = 64;
    if (text.size() > longest)
        return std::nullopt;
    const QStringList groups = numbers(text);
    const bool isLong = std::any_of(
        groups.begin(), groups.end(), [](const QString& group) { return group.size() > digitsOfYear; });
    if (isLong || groups.size() < 2)
        return std::nullopt;
    std::vector<Kind> order;
    for (const Section& section : sections_) {
        const bool isYearLeftOut = section.kind == Kind::year && groups.size() == 2;
        if (section.kind != Kind::dayPeriod && !isYearLeftOut)
            order.push_back(section.kind);
    }
    const bool isDate = std::any_of(
        sections_.begin(), sections_.end(), [](const Section& section) { return section.kind == Kind::day; });
    if (isDate && groups.size() == 3 && groups[0].size() == digitsOfYear)
        order = {Kind::year, Kind::month, Kind::day};
    // A time may have seconds, which are not read.
    if (groups.size() > 3 || (isDate && groups.size() != qsizetype(order.size())))
        return std::nullopt;
    DateFields result = fields;
    for (std::size_t i = 0; i < order.size(); ++i)
        setNumber(result, order[i], groups[qsizetype(i)]);
    if (!isDate) {
        const auto names = [&](bool isAfternoon) {
            return text.contains(dayPeriod(isAfternoon), Qt::CaseInsensitive)
                || text.contains(isAfternoon ? "pm"_L1 : "am"_L1, Qt::CaseInsensitive);
        };
        const bool isAfternoon = names(true);
        if (isAfternoon || names(false)) {
            if (result.hour < 1 || result.hour > noonHour)
                return std::nullopt;
            result.hour = result.hour % noonHour + (isAfternoon ? noonHour : 0);
        }
    }
    return isValid(result) ? std::optional(result) : std::nullopt;
}

} // namespace quor::formkit
