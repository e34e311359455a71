// SPDX-License-Identifier: MIT
#include "Platform/Resources/Bundle.h"
#include "ToolKit/Dates/DateOperations.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

using Unit = platform::Calendar::Unit;

struct Distance {
    QString unit; ///< the first part of the key of the text
    int value; ///< positive in the past
};

/// The largest unit that is not 0.
Distance largest(const platform::DateComponents& difference)
{
    const auto value = [](std::optional<int> component) { return component.value_or(0); };
    if (const int years = value(difference.year))
        return {u"Years"_s, years};
    if (const int months = value(difference.month))
        return {u"Months"_s, months};
    if (const int days = value(difference.day))
        return days % 7 == 0 ? Distance{u"Weeks"_s, days / 7} : Distance{u"Days"_s, days};
    if (const int hours = value(difference.hour))
        return {u"Hours"_s, hours};
    return {u"Minutes"_s, value(difference.minute)};
}

} // namespace

QString relativeText(Date date, const platform::Clock& clock)
{
    static const auto texts = platform::Bundle::named(u"Cabinet_ToolKit"_s);
    const auto difference = calendar().difference(
        {Unit::year, Unit::month, Unit::day, Unit::hour, Unit::minute}, date, clock.now());
    if (!difference)
        return {};
    const Distance distance = largest(*difference);
    const QString key = distance.unit + (distance.value >= 1 ? "Ago"_L1 : "In"_L1);
    return texts.localizedString(key, {qint64(std::abs(distance.value))});
}

} // namespace quor::toolkit
