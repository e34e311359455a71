// SPDX-License-Identifier: MIT
#pragma once

#include <QTimeZone>

#include <unicode/timezone.h>

#include <memory>

namespace quor::platform {

/// `zone` for ICU's calendars and formatters, never null. Its offsets are those of `zone`, so of the system's
/// zone data, and not of the data that ICU brings along; only the names of zones are ICU's.
[[nodiscard]] std::unique_ptr<icu::TimeZone> icuTimeZone(const QTimeZone& zone);

} // namespace quor::platform
