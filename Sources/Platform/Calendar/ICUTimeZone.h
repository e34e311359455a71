// SPDX-License-Identifier: MIT
#pragma once

#include <QTimeZone>

#include <unicode/timezone.h>

#include <memory>

namespace quor::platform {

/// `zone` for ICU's calendars and formatters, never null. Its offsets come from `zone`, that is from the
/// system's zone data. Only the names of zones come from ICU's own data.
[[nodiscard]] std::unique_ptr<icu::TimeZone> icuTimeZone(const QTimeZone& zone);

} // namespace quor::platform
