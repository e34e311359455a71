// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/GroupStorage.h"

#include "InterAppCommBridge/RecordCoding.h"
#include "Platform/Preferences/UserDefaults.h"
#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

using platform::UserDefaults;

namespace {

const QString timerDataKey = u"timerData"_s;
const QString menuEntryDataKey = u"menuEntryData"_s;
const QString actionKey = u"action"_s;
const QString searchTermKey = u"searchTerm"_s;
const QString showWorkingDaysKey = u"showWorkingDays"_s;
const QString workingDayLengthSecondsKey = u"workingDayLengthSeconds"_s;
const QString showDurationInPercentKey = u"showDurationInPercent"_s;
const QString enableLoggingKey = u"enableLogging"_s;

// Without JSONHelper, which would log a failure: an empty or foreign value is no error here.
template <typename Record>
Record read(const QString& suite, const QString& key)
{
    auto data = UserDefaults::suiteOrStandard(suite).dataForKey(key);
    return toolkit::JSONDecoder().decode<Record>(std::move(data).value_or(QByteArray())).value_or(Record());
}

template <typename Record>
void write(const Record& record, const QString& suite, const QString& key)
{
    const auto data = toolkit::JSONEncoder().encode(record);
    UserDefaults::suiteOrStandard(suite).setObject(data.value_or(QByteArray("")), key);
}

} // namespace

MenubarStatusItemData GroupStorage::timerData() const
{
    return read<MenubarStatusItemData>(groupID, timerDataKey);
}

std::vector<MenuEntry> GroupStorage::menuEntryData() const
{
    return read<std::vector<MenuEntry>>(groupID, menuEntryDataKey);
}

GroupStorage::Action GroupStorage::action() const
{
    return read<Action>(groupID, actionKey);
}

bool GroupStorage::showWorkingDays() const
{
    return UserDefaults::suiteOrStandard(groupID).boolForKey(showWorkingDaysKey);
}

double GroupStorage::workingDayLengthSeconds() const
{
    return UserDefaults::suiteOrStandard(groupID).doubleForKey(workingDayLengthSecondsKey);
}

bool GroupStorage::showDurationInPercent() const
{
    return UserDefaults::suiteOrStandard(groupID).boolForKey(showDurationInPercentKey);
}

bool GroupStorage::enableLogging() const
{
    return UserDefaults::suiteOrStandard(groupID).boolForKey(enableLoggingKey);
}

void GroupStorage::setSearchTerm(const QString& term) const
{
    UserDefaults::suiteOrStandard(groupID).setObject(term, searchTermKey);
}

void GroupStorage::setAction(const Action& action) const
{
    write(action, groupID, actionKey);
}

QString GroupStorage::searchTerm() const
{
    return UserDefaults::suiteOrStandard(groupID).stringForKey(searchTermKey).value_or(QString());
}

void GroupStorage::setTimerData(const MenubarStatusItemData& data) const
{
    write(data, groupID, timerDataKey);
}

void GroupStorage::setMenuEntryData(const std::vector<MenuEntry>& entries) const
{
    write(entries, groupID, menuEntryDataKey);
}

void GroupStorage::setShowWorkingDays(bool show) const
{
    UserDefaults::suiteOrStandard(groupID).setObject(show, showWorkingDaysKey);
}

void GroupStorage::setWorkingDayLengthSeconds(double seconds) const
{
    UserDefaults::suiteOrStandard(groupID).setObject(seconds, workingDayLengthSecondsKey);
}

void GroupStorage::setShowDurationInPercent(bool show) const
{
    UserDefaults::suiteOrStandard(groupID).setObject(show, showDurationInPercentKey);
}

void GroupStorage::setEnableLogging(bool enable) const
{
    UserDefaults::suiteOrStandard(groupID).setObject(enable, enableLoggingKey);
}

} // namespace quor
