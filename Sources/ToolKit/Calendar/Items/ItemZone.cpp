// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ItemZone.h"

#include <QDateTime>

#include <cmath>
#include <optional>

namespace quor::toolkit {

using platform::Date;
using platform::dateFromSeconds;
using platform::secondsSince1970;

namespace {

constexpr double firstSecond = -62'135'596'800.0 + 86'400.0; // a day in the year 1
constexpr double lastSecond = 253'370'764'800.0 - 86'400.0; // a day before the year 9999

/// The machine's zone of this name, which can have the prefix of a product, as in
/// "/vendor/20200101_1/Europe/Berlin". After a prefix, a single word such as "EST" is no name.
std::optional<QTimeZone> machineZone(const QByteArray& name)
{
    constexpr qsizetype longestName = 200; // each slash costs a look-up
    auto zone = platform::namedTimeZone(name);
    const qsizetype lastSlash
        = name.startsWith('/') && name.size() <= longestName ? name.lastIndexOf('/') : 0;
    for (qsizetype slash = 0; !zone && slash < lastSlash; slash = name.indexOf('/', slash + 1))
        zone = platform::namedTimeZone(name.sliced(slash + 1));
    return zone;
}

} // namespace

icalcomponent* zoneDefinition(icalcomponent* calendar, const QByteArray& name)
{
    icaltimezone* const zone = icalcomponent_get_timezone(calendar, name.constData());
    return zone ? icaltimezone_get_component(zone) : nullptr;
}

bool isWritable(Date date)
{
    const double seconds = secondsSince1970(date);
    return seconds >= firstSecond && seconds <= lastSecond;
}

std::optional<std::chrono::local_seconds> localTime(const icaltimetype& time)
{
    const QDate day(time.year, time.month, time.day);
    const QTime clock = time.is_date ? QTime(0, 0) : QTime(time.hour, time.minute, std::min(time.second, 59));
    if (!day.isValid() || !clock.isValid())
        return std::nullopt;
    const qint64 seconds = QDateTime(day, clock, Qt::UTC).toSecsSinceEpoch();
    return std::chrono::local_seconds(std::chrono::seconds(seconds));
}

ItemZone::ItemZone(const QTimeZone& zone)
    : name_(QString::fromUtf8(zone.id()))
    , zone_(zone)
{
}

ItemZone ItemZone::utc()
{
    return ItemZone(QTimeZone::utc());
}

ItemZone ItemZone::ofUser()
{
    return named(platform::userTimeZone().id(), nullptr);
}

ItemZone ItemZone::named(const QByteArray& name, icalcomponent* calendar)
{
    if (name == "UTC") // also without zone data
        return utc();
    if (const auto known = machineZone(name))
        return known->id() == "Etc/UTC" ? utc() : ItemZone(*known);
    ItemZone zone;
    if (icalcomponent* const found = calendar ? zoneDefinition(calendar, name) : nullptr) {
        if (auto defined = std::make_shared<const DefinedZone>(found); defined->isValid()) {
            zone.name_ = QString::fromUtf8(name);
            zone.defined_ = std::move(defined);
        }
    }
    return zone;
}

qint64 ItemZone::offsetAt(qint64 moment) const
{
    return defined_ ? defined_->offsetAt(moment)
                    : zone_.offsetFromUtc(QDateTime::fromSecsSinceEpoch(moment, Qt::UTC));
}

Date ItemZone::moment(const icaltimetype& local) const
{
    const auto time = toolkit::localTime(local);
    return time ? moment(*time) : dateFromSeconds(std::nan(""));
}

Date ItemZone::moment(std::chrono::local_seconds local) const
{
    constexpr qint64 day = 86'400;
    const qint64 seconds = local.time_since_epoch().count();
    const qint64 before = offsetAt(seconds - day);
    const qint64 after = offsetAt(seconds + day);
    const bool isAfter
        = before != after && offsetAt(seconds - before) != before && offsetAt(seconds - after) == after;
    return dateFromSeconds(double(seconds - (isAfter ? after : before)));
}

std::chrono::local_seconds ItemZone::localTime(Date moment) const
{
    const auto seconds = static_cast<qint64>(std::llround(secondsSince1970(moment)));
    return std::chrono::local_seconds(std::chrono::seconds(seconds + offsetAt(seconds)));
}

icaltimetype ItemZone::local(Date moment, bool isDate) const
{
    const auto seconds = localTime(moment).time_since_epoch().count();
    const auto time = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    icaltimetype local = icaltime_null_time();
    local.year = time.date().year();
    local.month = time.date().month();
    local.day = time.date().day();
    if (isDate) {
        local.is_date = 1;
        return local;
    }
    local.hour = time.time().hour();
    local.minute = time.time().minute();
    local.second = time.time().second();
    if (name_ == u"UTC")
        local.zone = icaltimezone_get_utc_timezone();
    return local;
}

} // namespace quor::toolkit
