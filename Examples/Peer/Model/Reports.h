// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QJsonArray>
#include <QJsonObject>

namespace quor::peer {

class Tracker;

/// The reports of `quor-peer list` and `quor-peer status`. Durations are in seconds, moments in seconds since
/// 1970. "color" is "RRGGBB"; it is left out if the task has no colour.

///     [{"id":"T1","name":"Design","color":"F58C6E","running":true,"secondsToday":90}, ...]
[[nodiscard]] QJsonArray taskReport(const Tracker& tracker, platform::Date now);

///     {"running":[{"id":"T1","name":"Design","start":1700000000,"seconds":90}, ...],
///      "secondsToday":90,"settings":{"singleTimer":false, ...}}
[[nodiscard]] QJsonObject statusReport(const Tracker& tracker, platform::Date now);

} // namespace quor::peer
