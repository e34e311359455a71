// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <span>
#include <variant>

namespace quor::peer {

/// What the user has chosen: what the status item shows, how durations are written, how long a day
/// is. Times in seconds. The names are those of the exchange.
struct Settings {
    bool menuBarShowActiveTask = true;
    bool menuBarShowDayProgress = true;
    bool menuBarShowRunningTimer = true;
    bool menuBarShowDailyTotal = false;
    bool showWorkingDays = false;
    double workingDayLengthSeconds = 8 * 3600;
    bool showDurationInPercent = false;
    bool enableLogging = false;
    double expectedWorkingTime = 8 * 3600;
    double nonWorkingTime = 0;
    bool singleTimer = false; ///< a start stops what runs

    friend bool operator==(const Settings&, const Settings&) = default;
};

/// One setting, for whoever treats them all alike.
struct SettingField {
    QLatin1StringView key;
    std::variant<bool Settings::*, double Settings::*> member;
    QLatin1StringView help;
};

/// All settings, in the order of the record.
[[nodiscard]] std::span<const SettingField> settingFields();

/// Sets the field called `key` from text: `true` or `false`, or a count of seconds, 0 or more.
/// Otherwise nothing is changed, and the result tells why.
[[nodiscard]] std::optional<QString> assign(Settings& settings, const QString& key, const QString& text);

} // namespace quor::peer
