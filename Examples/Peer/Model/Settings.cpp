// SPDX-License-Identifier: MIT
#include "Peer/Model/Settings.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

const std::array fields{
    SettingField{"menuBarShowActiveTask"_L1, &Settings::menuBarShowActiveTask, "show the task's name"_L1},
    SettingField{"menuBarShowDayProgress"_L1, &Settings::menuBarShowDayProgress,
        "show the day's progress as a ring"_L1},
    SettingField{
        "menuBarShowRunningTimer"_L1, &Settings::menuBarShowRunningTimer, "show the running time"_L1},
    SettingField{"menuBarShowDailyTotal"_L1, &Settings::menuBarShowDailyTotal, "show today's total"_L1},
    SettingField{"showWorkingDays"_L1, &Settings::showWorkingDays, "write long durations in working days"_L1},
    SettingField{
        "workingDayLengthSeconds"_L1, &Settings::workingDayLengthSeconds, "length of a working day"_L1},
    SettingField{"showDurationInPercent"_L1, &Settings::showDurationInPercent,
        "write durations as decimal numbers"_L1},
    SettingField{"enableLogging"_L1, &Settings::enableLogging, "have the helper write its log"_L1},
    SettingField{"expectedWorkingTime"_L1, &Settings::expectedWorkingTime, "work expected of each day"_L1},
    SettingField{
        "nonWorkingTime"_L1, &Settings::nonWorkingTime, "part of each day that is worked without a timer"_L1},
    SettingField{"singleTimer"_L1, &Settings::singleTimer, "starting a timer stops the others"_L1},
};

std::optional<QString> assignBool(bool& target, const QString& text)
{
    if (text != "true"_L1 && text != "false"_L1)
        return u"\"%1\" is neither true nor false"_s.arg(text);
    target = text == "true"_L1;
    return std::nullopt;
}

std::optional<QString> assignSeconds(double& target, const QString& text)
{
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(seconds) || seconds < 0)
        return u"\"%1\" is not a number of seconds, 0 or more"_s.arg(text);
    target = seconds;
    return std::nullopt;
}

} // namespace

std::span<const SettingField> settingFields()
{
    return fields;
}

std::optional<QString> assign(Settings& settings, const QString& key, const QString& text)
{
    const auto field = std::find_if(
        fields.begin(), fields.end(), [&](const SettingField& candidate) { return key == candidate.key; });
    if (field == fields.end())
        return u"there is no setting \"%1\""_s.arg(key);
    const auto problem = std::holds_alternative<bool Settings::*>(field->member)
        ? assignBool(settings.*std::get<bool Settings::*>(field->member), text)
        : assignSeconds(settings.*std::get<double Settings::*>(field->member), text);
    return problem ? u"%1: %2"_s.arg(key, *problem) : problem;
}

} // namespace quor::peer
