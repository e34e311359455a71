// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ItemZone.h"

#include "ToolKit/Calendar/Items/Components.h"

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
    for (icalcomponent* zone : componentsIn(calendar, ICAL_VTIMEZONE_COMPONENT)) {
        const icalproperty* id = icalcomponent_get_first_property(zone, ICAL_TZID_PROPERTY);
        const char* text = id ? icalproperty_get_tzid(id) : nullptr;
        if (text && name == text)
            return zone;
    }
    return nullptr;
}

bool isWritable(Date date)
{
    const double seconds = secondsSince1970(date);
    return seconds >= firstSecond && seconds <= lastSecond;
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
        zone.defined_ = std::shared_ptr<icaltimezone>(
            icaltimezone_new(), [](icaltimezone* each) { icaltimezone_free(each, 1); });
        // On success the zone takes over the copy.
        icalcomponent* const copy = icalcomponent_new_clone(found);
        if (icaltimezone_set_component(zone.defined_.get(), copy)) {
            zone.name_ = QString::fromUtf8(name);
        } else {
            icalcomponent_free(copy);
            zone.defined_.reset();
        }
    }
    return zone;
}

Date ItemZone::moment(const icaltimetype& local) const
{
    const QDate day(local.year, local.month, local.day);
    const QTime time
        = local.is_date ? QTime(0, 0) : QTime(local.hour, local.minute, std::min(local.second, 59));
    if (!day.isValid() || !time.isValid())
        return dateFromSeconds(std::nan(""));
    if (local.is_date)
        return dateFromSeconds(double(day.startOfDay(zone_).toSecsSinceEpoch()));
    if (defined_) {
        icaltimetype copy = local;
        int isDaylight = 0;
        const int offset = icaltimezone_get_utc_offset(defined_.get(), &copy, &isDaylight);
        return dateFromSeconds(double(QDateTime(day, time, Qt::UTC).toSecsSinceEpoch()) - offset);
    }
    return dateFromSeconds(double(QDateTime(day, time, zone_).toSecsSinceEpoch()));
}

icaltimetype ItemZone::local(Date moment, bool isDate) const
{
    const auto seconds = static_cast<qint64>(std::llround(secondsSince1970(moment)));
    QDateTime time;
    if (defined_) {
        icaltimetype utc = icaltime_from_timet_with_zone(seconds, 0, icaltimezone_get_utc_timezone());
        int isDaylight = 0;
        const int offset = icaltimezone_get_utc_offset_of_utc_time(defined_.get(), &utc, &isDaylight);
        time = QDateTime::fromSecsSinceEpoch(seconds + offset, Qt::UTC);
    } else {
        time = QDateTime::fromSecsSinceEpoch(seconds, zone_);
    }
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
