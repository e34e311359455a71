// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Date.h"

#include <QTimeZone>

#include <unicode/timezone.h>

#include <memory>

namespace quor::platform {

/// `zone` for ICU's calendars and formatters, never null. A zone that ICU does not know by name has, at all
/// times, the offset that it has at the moment `at`.
[[nodiscard]] std::unique_ptr<icu::TimeZone> icuTimeZone(const QTimeZone& zone, Date at);

} // namespace quor::platform
