// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/TypedDuration.h"

#include "ToolKit/Formatting/DurationFormatter.h"
#include "ToolKit/Formatting/TypedNumber.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

QString localized(const QString& key)
{
    return platform::Bundle::named(u"Cabinet_ToolKit"_s).localizedString(key);
}

/// The numbers of a duration, each empty if it is missing.
class Fields {
public:
    /// Takes the next number, with its unit if it has one. Returns whether it fits.
    bool take(const QString& number, const QString& unit)
    {
        const auto isUnit = [&](const QString& key) { return localized(key).split(u' ').contains(unit); };
        if (number.contains(u':')) {
            const QStringList parts = number.split(u':');
            return (unit.isEmpty() || isUnit(u"DurationHourUnits"_s)) && set(hours, parts[0])
                && set(minutes, parts[1]);
        }
        // "1h 30"
        if (unit.isEmpty())
            return !hours.isEmpty() && set(minutes, number);
        if (isUnit(u"DurationMinuteUnits"_s))
            return set(minutes, number);
        if (isUnit(u"DurationHourUnits"_s))
            return minutes.isEmpty() && set(hours, number);
        return isUnit(u"DurationDayUnits"_s) && hours.isEmpty() && minutes.isEmpty() && set(days, number);
    }

    QString days;
    QString hours;
    QString minutes;

private:
    static bool set(QString& field, const QString& number)
    {
        const bool isFirst = field.isEmpty();
        field = number;
        return isFirst;
    }
};

} // namespace

std::optional<double> typedDuration(const QString& text, const DurationFormatter& formatter)
{
    if (text.size() > longestTypedNumber)
        return std::nullopt;
    QString rest = folded(text);
    const bool isNegative = rest.startsWith(u'-') || rest.startsWith(u'\u2212');
    if (isNegative)
        rest.remove(0, 1);
    static const QRegularExpression numberWithUnit(
        uR"(\G\s*([^\s\p{L}:]+(?:\s*:\s*[^\s\p{L}:]+)*)\s*(\p{L}*)\.?\s*)"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    Fields fields;
    qsizetype end = 0;
    for (auto matches = numberWithUnit.globalMatch(rest); matches.hasNext();) {
        const auto match = matches.next();
        if (!fields.take(match.captured(1), match.captured(2)))
            return std::nullopt;
        end = match.capturedEnd();
    }
    if (end == 0 || end != rest.size() || (!fields.days.isEmpty() && !formatter.showWorkingDays()))
        return std::nullopt;
    const auto orZero = [](const QString& number) { return number.isEmpty() ? u"0"_s : number; };
    QString clock = orZero(fields.hours) + u':' + orZero(fields.minutes);
    if (!fields.days.isEmpty())
        clock.prepend(fields.days + localized(u"FormatterWorkingDayShort"_s));
    const auto seconds = formatter.duration(clock, 2);
    return seconds && isNegative ? -*seconds : seconds;
}

} // namespace quor::toolkit
