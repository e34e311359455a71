// SPDX-License-Identifier: MIT
#include "Platform/Calendar/Date.h"

#include <QDateTime>
#include <QTimeZone>

#include <cmath>

namespace quor::platform {

namespace {

constexpr double millisecondsPerSecond = 1000;

std::optional<qint64> milliseconds(Date date)
{
    const double seconds = secondsSince1970(date);
    return std::fabs(seconds) <= furthestSeconds
        ? std::optional<qint64>(std::llround(seconds * millisecondsPerSecond))
        : std::nullopt;
}

} // namespace

std::optional<Date> dateFromQDateTime(const QDateTime& dateTime)
{
    const double seconds = double(dateTime.toMSecsSinceEpoch()) / millisecondsPerSecond;
    return dateTime.isValid() && std::fabs(seconds) <= furthestSeconds
        ? std::optional(dateFromSeconds(seconds))
        : std::nullopt;
}

QDateTime qDateTimeFromDate(Date date, const QTimeZone& zone)
{
    const auto moment = milliseconds(date);
    return moment ? QDateTime::fromMSecsSinceEpoch(*moment, zone) : QDateTime();
}

QDateTime qDateTimeFromDate(Date date)
{
    const auto moment = milliseconds(date);
    return moment ? QDateTime::fromMSecsSinceEpoch(*moment) : QDateTime();
}

} // namespace quor::platform
