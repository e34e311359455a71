// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DurationFormatter.h"

#include <QStringList>

#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr double secondsPerMinute = 60;
constexpr double secondsPerHour = 3600;

std::int64_t field(double value)
{
    constexpr double limit = 9223372036854775808.0; // 2^63, the smallest value that does not fit
    return value < limit ? static_cast<std::int64_t>(value) : std::numeric_limits<std::int64_t>::max();
}

QString twoDigits(std::int64_t value)
{
    return QString::number(value).rightJustified(2, u'0');
}

double finiteOrZero(double value)
{
    return std::isfinite(value) ? value : 0;
}

// Subtracts all whole multiples of `unit` from `value` and returns their number. The remainder is exact and
// never negative, so no field needs to carry into the next.
std::int64_t takeMultiples(double& value, double unit)
{
    const double rest = std::fmod(value, unit);
    return field(std::round((std::exchange(value, rest) - rest) / unit));
}

QString clockFields(double duration, bool showMinutes, bool showSeconds)
{
    QString text = twoDigits(takeMultiples(duration, secondsPerHour));
    if (showMinutes)
        text += u':' + twoDigits(takeMultiples(duration, secondsPerMinute));
    if (showMinutes && showSeconds)
        text += u':' + twoDigits(field(duration));
    return text;
}

// Languages separate groups of digits, and units, by several kinds of blanks.
QString withoutBlanks(QString text)
{
    return text.removeIf([](QChar character) { return character.isSpace(); });
}

// `separator` is empty if the bundle lacks the text.
QStringList pieces(const QString& text, const QString& separator)
{
    return separator.isEmpty() ? QStringList(text) : text.split(separator);
}

bool isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

} // namespace

DurationFormatter::DurationFormatter()
    : bundle_(platform::Bundle::named(u"Cabinet_ToolKit"_s))
{
    percentageFormatter_.setMinimumFractionDigits(0);
    percentageFormatter_.setMaximumFractionDigits(2);
}

void DurationFormatter::configure(
    bool showWorkingDays, bool showDurationInPercent, double workingDayLengthSeconds)
{
    showWorkingDays_ = showWorkingDays;
    showDurationInPercent_ = showDurationInPercent;
    workingDayLengthSeconds_ = workingDayLengthSeconds;
}

QString DurationFormatter::string(double duration, bool showMinutes) const
{
    if (showDurationInPercent_)
        return decimalString(showWorkingDays_, true, 2, duration);
    return clockString(showWorkingDays_, showMinutes, false, duration);
}

std::optional<double> DurationFormatter::duration(const QString& text, int maximumFractionDigits) const
{
    QString days = u"0"_s;
    QString rest = withoutBlanks(text);
    if (const QStringList parts = pieces(rest, workingDayText()); parts.size() > 1) {
        days = parts[0];
        rest = parts[1].isEmpty() ? u"00:00"_s : parts[1];
    }
    QString hours = rest;
    QString minutes = u"00"_s;
    if (const QStringList parts = rest.split(u':'); parts.size() > 1) {
        hours = parts[0];
        minutes = parts[1];
    } else if (const QString unit = hourText(); !unit.isEmpty()) {
        hours.remove(unit);
    }

    percentageFormatter_.setMaximumFractionDigits(maximumFractionDigits);
    const auto dayCount = percentageFormatter_.number(days);
    const auto hourCount = percentageFormatter_.number(hours);
    const auto minuteCount = percentageFormatter_.number(minutes);
    if (!dayCount || !hourCount || !minuteCount)
        return std::nullopt;
    const double seconds
        = *dayCount * usableWorkingDay() + *hourCount * secondsPerHour + *minuteCount * secondsPerMinute;
    return std::isfinite(seconds) ? std::optional(seconds) : std::nullopt;
}

QString DurationFormatter::clockString(
    bool inWorkingDays, bool showMinutes, bool showSeconds, double duration) const
{
    const double given = finiteOrZero(duration);
    double left = std::abs(given);
    const double workingDay = usableWorkingDay();
    QString text;
    if (given < 0)
        text += u'-';
    if (const auto days = inWorkingDays && workingDay > 0 ? takeMultiples(left, workingDay) : 0; days >= 1)
        text += QString::number(days) + workingDayText() + u' ';
    return text + clockFields(left, showMinutes, showSeconds);
}

QString DurationFormatter::decimalString(
    bool inWorkingDays, bool appendUnit, int maximumFractionDigits, double duration) const
{
    const double workingDay = usableWorkingDay();
    const bool inDays = inWorkingDays && workingDay > 0;
    percentageFormatter_.setMaximumFractionDigits(maximumFractionDigits);
    QString number = percentageFormatter_.string(duration / (inDays ? workingDay : secondsPerHour));
    if (!appendUnit || number.isEmpty())
        return number;
    return number + u' ' + (inDays ? workingDayText() : hourText());
}

std::optional<QString> DurationFormatter::stringForObjectValue(const QVariant& value) const
{
    return isNumber(value) ? std::optional(string(value.toDouble(), true)) : std::nullopt;
}

double DurationFormatter::usableWorkingDay() const
{
    return workingDayLengthSeconds_ > 0 ? finiteOrZero(workingDayLengthSeconds_) : 0;
}

QString DurationFormatter::workingDayText() const
{
    return bundle_.localizedString(u"FormatterWorkingDayShort"_s);
}

QString DurationFormatter::hourText() const
{
    return bundle_.localizedString(u"FormatterHourShort"_s);
}

} // namespace quor::toolkit
