// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventStoreState.h"

#include "ToolKit/Calendar/Stores/CalendarRoot.h"

#include <algorithm>
#include <set>
#include <utility>

namespace quor::toolkit {

namespace {

constexpr QByteArrayView localSource = "local";
constexpr qint64 largestSmallFile = 4096;

CalendarPath pathOf(const QString& identifier)
{
    const QByteArray name = identifier.toUtf8();
    const qsizetype slash = name.indexOf('/');
    return slash < 0 ? CalendarPath() : CalendarPath{name.first(slash), name.sliced(slash + 1)};
}

EventSource readSource(const QByteArray& root, const QByteArray& name)
{
    const auto content = CalendarDirectory(root, {name, {}}).read("displayname", largestSmallFile);
    const QString title
        = content && content->bytes ? QString::fromUtf8(content->bytes->trimmed()) : QString();
    return {QString::fromUtf8(name), title.isEmpty() ? QString::fromUtf8(name) : title};
}

/// Whether nothing is to be tried again.
bool isSettled(const EventStore::Result& failure, std::vector<EventStoreError>& failures)
{
    using Kind = EventStoreError::Kind;
    if (!failure)
        return true;
    failures.push_back(*failure);
    return failure->kind() == Kind::conflict || failure->kind() == Kind::notFound;
}

} // namespace

EventStore::State::State(EventStoreOptions settings)
    : options(std::move(settings))
    , root(calendarRoot(options))
{
}

bool EventStore::State::hasAccess(EntityType type) const
{
    return authorizationStatus(type, options) == AuthorizationStatus::fullAccess;
}

void EventStore::State::list()
{
    std::set<CalendarPath> found;
    sources.clear();
    sources.push_back(readSource(root, localSource.toByteArray()));
    for (const CalendarPath& path : watch_->list()) {
        found.insert(path);
        if (path.calendar.isEmpty()) {
            if (path.source != localSource)
                sources.push_back(readSource(root, path.source));
        } else if (!folders_.contains(path)) {
            folders_.emplace(path, std::make_unique<CalendarFolder>(root, path));
        }
    }
    std::ranges::stable_sort(sources.begin() + 1, sources.end(), {}, &EventSource::title);
    // What is staged for a folder that is gone fails at the commit.
    std::erase_if(
        folders_, [&](const auto& each) { return !found.contains(each.first) && !each.second->hasStaged(); });
}

void EventStore::State::refresh()
{
    if (root.isEmpty())
        return;
    if (!watch_)
        watch_ = std::make_unique<FolderWatch>(root);
    const FolderWatch::Changes changes = watch_->drain();
    const bool isWatched
        = watch_->isRootWatched() && std::ranges::all_of(sources, [&](const EventSource& each) {
              return watch_->isWatched({each.sourceIdentifier.toUtf8(), {}});
          });
    if (std::exchange(isStale_, false) || changes.folders || !isWatched)
        list();
    for (const auto& [path, folder] : folders_) {
        if (changes.all.contains(path.identifier()) || !watch_->isWatched(path))
            folder->invalidate();
        if (const auto files = changes.files.find(path.identifier()); files != changes.files.end())
            folder->invalidate(files->second);
    }
}

CalendarFolder* EventStore::State::folder(const QString& calendarIdentifier)
{
    const auto found = folders_.find(pathOf(calendarIdentifier));
    return found == folders_.end() ? nullptr : found->second.get();
}

EventSource EventStore::State::source(const QByteArray& name) const
{
    const QString identifier = QString::fromUtf8(name);
    const auto found = std::ranges::find(sources, identifier, &EventSource::sourceIdentifier);
    return found == sources.end() ? EventSource{identifier, identifier} : *found;
}

std::vector<std::pair<CalendarPath, CalendarFolder*>> EventStore::State::folders(
    const std::optional<std::vector<QString>>& identifiers)
{
    std::vector<std::pair<CalendarPath, CalendarFolder*>> found;
    for (const auto& [path, folder] : folders_) {
        if (!identifiers
            || std::ranges::find(*identifiers, QString::fromUtf8(path.identifier())) != identifiers->end())
            found.emplace_back(path, folder.get());
    }
    return found;
}

void EventStore::State::removeCalendars(std::vector<EventStoreError>& failures)
{
    std::erase_if(calendarRemovals, [&](const CalendarPath& path) {
        const auto folder = folders_.find(path);
        const bool isKnown = folder != folders_.end();
        if (isKnown && folder->second->hasDepartures())
            return true; // it would be lost: the calendar stays
        const auto failure = CalendarDirectory::removeCalendar(root, path);
        if (!failure && isKnown)
            folder->second->reset();
        isStale_ = true;
        return isSettled(failure, failures);
    });
}

EventStore::Result EventStore::State::commit()
{
    std::vector<EventStoreError> failures;
    std::erase_if(calendarChanges, [&](const auto& change) { return isSettled(change(), failures); });
    const auto write = [&](CalendarFolder::Writes writes) {
        bool isAnyDone = false;
        for (const auto& [path, folder] : folders_) {
            if (std::ranges::find(calendarRemovals, path) == calendarRemovals.end())
                isAnyDone = folder->commit(writes, failures) || isAnyDone;
        }
        return isAnyDone;
    };
    write(CalendarFolder::Writes::contents);
    // An event that moves to another calendar leaves the old one only when it is in the new one, which may
    // itself be waiting for a third.
    while (write(CalendarFolder::Writes::removals)) { }
    removeCalendars(failures);
    // What was to move into one of these stays where it is.
    while (write(CalendarFolder::Writes::removals)) { }
    return failures.empty() ? Result() : failures.front();
}

} // namespace quor::toolkit
