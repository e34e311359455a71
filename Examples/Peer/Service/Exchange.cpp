// SPDX-License-Identifier: MIT
#include "Peer/Service/Exchange.h"

#include "Peer/Model/NextChange.h"
#include "Peer/Model/StatusRecord.h"

#include <utility>

namespace quor::peer {

namespace {

bool isCommand(const GroupStorage::Action& action)
{
    using Action = GroupStorage::Action;
    return !std::holds_alternative<Action::None>(action.value)
        && !std::holds_alternative<Action::OpenMenu>(action.value)
        && !std::holds_alternative<Action::RequestMenuEntries>(action.value);
}

} // namespace

Exchange::Exchange(Tracker& tracker, const platform::Clock& clock,
    platform::DistributedNotificationCenter& center, MenuTexts texts, Handlers handlers)
    : tracker_(tracker)
    , clock_(clock)
    , center_(center)
    , bridge_(center)
    , texts_(std::move(texts))
    , handlers_(std::move(handlers))
{
    QObject::connect(&timer_, &WallClockTimer::fired, &timer_, [this] { publish(); });
}

Exchange::~Exchange()
{
    center_.removeObserver(observer_);
}

void Exchange::begin()
{
    bridge_.groupStorage.setAction({Action::None{}});
    observer_ = bridge_.registerForNotification(
        InterAppNotification::updatedMain, [this](const platform::Notification&) { handleUpdate(); });
    publishSettings();
}

void Exchange::publish()
{
    const GroupStorage& storage = bridge_.groupStorage;
    // While this request stands, the helper takes every notification as a sign that its rows are ready.
    if (std::holds_alternative<Action::RequestMenuEntries>(storage.action().value))
        writeRows();
    const platform::Date now = clock_.now();
    const MenubarStatusItemData record = statusRecord(tracker_, now);
    storage.setTimerData(record);
    bridge_.postNotification(InterAppNotification::updatedHelper);
    timer_.fireAt(nextChange(record, tracker_.settings(), now));
}

void Exchange::publishSettings()
{
    const GroupStorage& storage = bridge_.groupStorage;
    const Settings& settings = tracker_.settings();
    storage.setShowWorkingDays(settings.showWorkingDays);
    storage.setWorkingDayLengthSeconds(settings.workingDayLengthSeconds);
    storage.setShowDurationInPercent(settings.showDurationInPercent);
    storage.setEnableLogging(settings.enableLogging);
    publish();
}

void Exchange::openMenu()
{
    bridge_.groupStorage.setAction({Action::OpenMenu{}});
    bridge_.postNotification(InterAppNotification::updatedHelper);
}

void Exchange::killHelper()
{
    bridge_.postNotification(InterAppNotification::helperKill);
}

void Exchange::handleUpdate()
{
    const Action action = bridge_.groupStorage.action();
    // Nobody else clears a command. Left in place, the next notification would carry it out again.
    if (isCommand(action))
        bridge_.groupStorage.setAction({Action::None{}});
    std::visit([this](const auto& request) { handle(request); }, action.value);
}

void Exchange::handle(const Action::StopTimer& request)
{
    rowsAreOnShow_ = false;
    report(tracker_.stop(request.taskID, request.delta));
}

void Exchange::handle(const Action::AdjustTimer& request)
{
    // The menu stays open after a change of the start, and its row shows the old start. So send the rows
    // again, unless the helper has written another request since.
    if (rowsAreOnShow_ && bridge_.groupStorage.action() == Action{})
        bridge_.groupStorage.setAction({Action::RequestMenuEntries{}});
    report(tracker_.adjust(request.taskID, request.delta));
}

void Exchange::handle(const Action::StartTimer& request)
{
    rowsAreOnShow_ = false;
    report(tracker_.start(request.taskID));
}

void Exchange::handle(const Action::None&)
{
    publish();
}

void Exchange::handle(const Action::OpenMenu&)
{
    publish();
}

void Exchange::handle(const Action::OpenQuor&)
{
    rowsAreOnShow_ = false;
    handlers_.openQuor();
}

void Exchange::handle(const Action::QuitQuor&)
{
    killHelper();
    handlers_.quitQuor();
}

void Exchange::handle(const Action::RequestMenuEntries&)
{
    publish();
}

void Exchange::report(Outcome outcome)
{
    if (outcome == Outcome::notStored)
        handlers_.notStored();
    publish();
}

void Exchange::writeRows()
{
    const GroupStorage& storage = bridge_.groupStorage;
    storage.setMenuEntryData(menuRows(tracker_, storage.searchTerm(), texts_));
    rowsAreOnShow_ = true;
}

} // namespace quor::peer
