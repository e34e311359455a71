// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Calendar.h"

namespace quor::formkit {

/// What a clock and a calendar on the wall show, to the minute.
struct DateFields {
    int year = 1970;
    int month = 1; ///< from 1
    int day = 1;
    int hour = 0; ///< 0 to 23
    int minute = 0;

    bool operator==(const DateFields&) const = default;
};

/// The Gregorian calendar in the time zone in which the shared calendar is when this object is made. It keeps
/// that zone, so that what a user reads and changes stays in one zone. A value. Any thread.
class ZonedCalendar final {
public:
    ZonedCalendar();

    /// Whether the shared calendar is still in this zone.
    [[nodiscard]] bool isCurrent() const;

    /// The initial fields for a moment that no calendar covers.
    [[nodiscard]] DateFields fields(platform::Date date) const;

    /// Where to go from a time of day that is skipped, because clocks are put forward.
    enum class Skip { forward, backward };

    /// The moment that has these fields, and 0 seconds. Of a time of day that occurs twice, because clocks
    /// are put back, takes the occurrence with the offset that `previous` has, else the first. A skipped time
    /// becomes the first minute after the gap, or the last one before it. Returns `previous` if no calendar
    /// covers the moment.
    [[nodiscard]] platform::Date date(
        const DateFields& fields, platform::Date previous, Skip skip = Skip::forward) const;

private:
    platform::Calendar calendar_;
    platform::Calendar utc_;
};

} // namespace quor::formkit
