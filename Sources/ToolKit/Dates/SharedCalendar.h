// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Calendar.h"

/// The calendar of all date operations of the program: its first weekday, weekend, numbering of weeks and
/// time zone.
///
/// Initially it follows the user's settings. A calendar that is set is used by every operation that starts
/// later, on any thread, until the program ends. Any thread.
namespace quor::toolkit {

/// A copy, which is cheap.
[[nodiscard]] platform::Calendar calendar();
void setCalendar(const platform::Calendar& calendar);

} // namespace quor::toolkit
