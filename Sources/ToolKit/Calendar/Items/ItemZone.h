// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/TimeZones.h"
#include "Platform/Services/Clock.h"
#include "ToolKit/Calendar/Items/DefinedZone.h"

#include <QByteArray>
#include <QString>

#include <libical/ical.h>

#include <chrono>
#include <memory>
#include <optional>

namespace quor::toolkit {

/// The time zone of a moment in a calendar file. A name that the machine knows means the machine's zone of
/// that name, even if the file defines it differently. Any other name means the zone that the file defines.
/// An unknown name, and no name (floating time), mean the user's zone.
class ItemZone final {
public:
    /// Floating time.
    ItemZone() = default;
    [[nodiscard]] static ItemZone utc();
    /// The user's zone under its name. Floating time if it has none, as with a rule in TZ.
    [[nodiscard]] static ItemZone ofUser();
    /// `calendar` holds definitions of zones; null if there are none.
    [[nodiscard]] static ItemZone named(const QByteArray& name, icalcomponent* calendar);

    /// Empty for floating time and for an unknown name.
    [[nodiscard]] const QString& name() const { return name_; }
    /// Returns a date that is not a number if `local` is no valid date or time.
    [[nodiscard]] platform::Date moment(const icaltimetype& local) const;
    /// Where the clock is set back, a local time occurs twice: returns the first moment. Where the clock is
    /// set forward, a local time does not occur: returns the moment that follows from the offset before.
    [[nodiscard]] platform::Date moment(std::chrono::local_seconds local) const;
    /// Returns whole seconds.
    [[nodiscard]] std::chrono::local_seconds localTime(platform::Date moment) const;
    /// Returns whole seconds, or a date alone. Only a time in UTC carries its zone.
    [[nodiscard]] icaltimetype local(platform::Date moment, bool isDate) const;

private:
    explicit ItemZone(const QTimeZone& zone);
    /// In seconds. `moment` is in seconds since 1970.
    [[nodiscard]] qint64 offsetAt(qint64 moment) const;

    QString name_;
    QTimeZone zone_ = platform::userTimeZone();
    std::shared_ptr<const DefinedZone> defined_; ///< null for a zone of the machine
};

/// Returns `nullopt` if `time` is no valid date or time. Leap seconds are left out.
[[nodiscard]] std::optional<std::chrono::local_seconds> localTime(const icaltimetype& time);

/// Returns the definition of that name (VTIMEZONE) in a calendar, null if there is none. Borrowed.
[[nodiscard]] icalcomponent* zoneDefinition(icalcomponent* calendar, const QByteArray& name);

/// Whether the moment lies in the years 1 to 9998, so that it can be written in every zone.
[[nodiscard]] bool isWritable(platform::Date date);

} // namespace quor::toolkit
