// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/GroupStorage.h"
#include "InterAppCommBridge/MenuEntry.h"
#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "ToolKit/Data/JSON/JSONFields.h"

/// The JSON form of the records that the applications exchange, for `JSONDecoder` and `JSONEncoder`:
///
///     JSONDecoder().decode<std::vector<MenuEntry>>(bytes)
///
/// One invalid row makes the whole list invalid. The order of members is unspecified.
namespace quor::toolkit {

template <>
struct JSONFields<MenubarStatusItemData> {
    using Data = MenubarStatusItemData;
    static constexpr auto fields = std::tuple(jsonField("expectedWorkingTime", &Data::expectedWorkingTime),
        jsonField("nonWorkingTime", &Data::nonWorkingTime),
        jsonField("inactiveTotalTimeToday", &Data::inactiveTotalTimeToday),
        jsonField("trackerActive", &Data::trackerActive), jsonField("activeColor", &Data::activeColor),
        jsonField("activeStartTimes", &Data::activeStartTimes), jsonField("taskName", &Data::taskName),
        jsonField("menuBarShowActiveTask", &Data::menuBarShowActiveTask),
        jsonField("menuBarShowDayProgress", &Data::menuBarShowDayProgress),
        jsonField("menuBarShowRunningTimer", &Data::menuBarShowRunningTimer),
        jsonField("menuBarShowDailyTotal", &Data::menuBarShowDailyTotal));
};

template <>
struct JSONCases<MenuEntry::Entry::Action> {
    using Action = MenuEntry::Entry::Action;
    static constexpr auto value = &Action::value;
    static constexpr auto cases = std::tuple(jsonCase("stop", jsonField("_0", &Action::Stop::taskID)),
        jsonCase("start", jsonField("_0", &Action::Start::taskID)), jsonCase("show"), jsonCase("quit"),
        jsonCase("none"));
};

template <>
struct JSONFields<MenuEntry::Entry> {
    using Entry = MenuEntry::Entry;
    static constexpr auto fields
        = std::tuple(jsonField("label", &Entry::label), jsonField("hotkey", &Entry::hotkey),
            jsonField("iconName", &Entry::iconName), jsonField("color", &Entry::color),
            jsonField("isTitle", &Entry::isTitle), jsonField("action", &Entry::action));
};

template <>
struct JSONCases<MenuEntry> {
    static constexpr auto value = &MenuEntry::value;
    static constexpr auto cases = std::tuple(jsonCase("entry", jsonPayload("_0")),
        jsonCase("adjustStart", jsonField("_0", &MenuEntry::AdjustStart::taskID),
            jsonField("_1", &MenuEntry::AdjustStart::startTime)),
        jsonCase("stopPast", jsonField("_0", &MenuEntry::StopPast::taskID)), jsonCase("search"),
        jsonCase("separator"));
};

template <>
struct JSONCases<GroupStorage::Action> {
    using Action = GroupStorage::Action;
    static constexpr auto value = &Action::value;
    static constexpr auto cases
        = std::tuple(jsonCase("stopTimer", jsonField("taskID", &Action::StopTimer::taskID),
                         jsonField("delta", &Action::StopTimer::delta)),
            jsonCase("adjustTimer", jsonField("taskID", &Action::AdjustTimer::taskID),
                jsonField("delta", &Action::AdjustTimer::delta)),
            jsonCase("startTimer", jsonField("taskID", &Action::StartTimer::taskID)), jsonCase("none"),
            jsonCase("openMenu"), jsonCase("openQuor"), jsonCase("quitQuor"), jsonCase("requestMenuEntries"));
};

} // namespace quor::toolkit
