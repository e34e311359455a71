// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace quor::toolkit {

class DurationFormatter;

/// The duration in seconds of a text with a colon or with units, as people write it: "1:30", "1d 2:30",
/// "90m", "1h 30m", "1h 30", "1.5 hours". A minus sign at the start applies to all of it. Seconds after a
/// second colon are ignored. Units are those of the user's language and of English; `formatter` reads the
/// numbers.
///
/// Returns `nullopt` for all other texts, also for a number alone, and for a text with days unless
/// `formatter` shows working days.
[[nodiscard]] std::optional<double> typedDuration(const QString& text, const DurationFormatter& formatter);

} // namespace quor::toolkit
