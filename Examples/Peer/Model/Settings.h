// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <span>
#include <variant>

namespace quor::peer {

/// The user's settings: what the status item shows, how durations are written, how long a working day is.
/// Times are in seconds. The names are the same as in the exchange with the helper.
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
    bool singleTimer = false; ///< starting a timer stops the others

    friend bool operator==(const Settings&, const Settings&) = default;
};

/// The description of one setting, for code that handles all settings alike.
struct SettingField {
    QLatin1StringView key;
    std::variant<bool Settings::*, double Settings::*> member;
    QLatin1StringView help;
};

/// All settings, in the order of the record.
[[nodiscard]] std::span<const SettingField> settingFields();

/// Sets the field called `key` from `text`: "true" or "false", or a number of seconds, 0 or more. Returns
/// `nullopt` on success; otherwise changes nothing and returns a message for the user.
[[nodiscard]] std::optional<QString> assign(Settings& settings, const QString& key, const QString& text);

} // namespace quor::peer
