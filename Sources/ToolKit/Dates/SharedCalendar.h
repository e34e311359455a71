// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Calendar.h"

/// The one calendar of all date operations, so that one setting decides everywhere.
///
/// At first it follows the user: the default locale with its first weekday, weekend and numbering of
/// weeks, and the machine's time zone. Setting it counts for every operation that begins later, in the
/// whole program; it is not kept beyond it. Any thread.
namespace quor::toolkit {

/// Cheap: a copy shares what is costly.
[[nodiscard]] platform::Calendar calendar();
void setCalendar(const platform::Calendar& calendar);

} // namespace quor::toolkit
