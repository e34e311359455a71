// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/TimeZones.h"
#include "Platform/Services/Clock.h"

#include <QByteArray>
#include <QString>

#include <libical/ical.h>

#include <memory>

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
    /// Returns a date that is not a number if `local` does not exist.
    [[nodiscard]] platform::Date moment(const icaltimetype& local) const;
    /// Returns whole seconds, or a date alone. Only a time in UTC carries its zone.
    [[nodiscard]] icaltimetype local(platform::Date moment, bool isDate) const;

private:
    explicit ItemZone(const QTimeZone& zone);

    QString name_;
    QTimeZone zone_ = platform::userTimeZone();
    /// The zone that the file defines; null for a zone of the machine.
    std::shared_ptr<icaltimezone> defined_;
};

/// Returns the definition of that name (VTIMEZONE) in a calendar, null if there is none. Borrowed.
[[nodiscard]] icalcomponent* zoneDefinition(icalcomponent* calendar, const QByteArray& name);

/// Whether the moment lies in the years 1 to 9998, so that it can be written in every zone.
[[nodiscard]] bool isWritable(platform::Date date);

} // namespace quor::toolkit
