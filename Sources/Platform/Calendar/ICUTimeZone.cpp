// SPDX-License-Identifier: MIT
#include "Platform/Calendar/ICUTimeZone.h"

#include <QDateTime>

#include <cstdlib>

namespace quor::platform {

namespace {

std::unique_ptr<icu::TimeZone> created(const QByteArray& name)
{
    return std::unique_ptr<icu::TimeZone>(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name.constData())));
}

QByteArray offsetName(int seconds)
{
    const int distance = std::abs(seconds);
    return QStringLiteral("GMT%1%2:%3:%4")
        .arg(QChar(seconds < 0 ? u'-' : u'+'))
        .arg(distance / 3600, 2, 10, QLatin1Char('0'))
        .arg(distance / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(distance % 60, 2, 10, QLatin1Char('0'))
        .toLatin1();
}

} // namespace

std::unique_ptr<icu::TimeZone> icuTimeZone(const QTimeZone& zone, Date at)
{
    auto named = created(zone.id());
    return *named != icu::TimeZone::getUnknown()
        ? std::move(named)
        : created(offsetName(zone.offsetFromUtc(qDateTimeFromDate(at, QTimeZone::utc()))));
}

} // namespace quor::platform
