// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarTree.h"

#include <algorithm>
#include <set>
#include <utility>

namespace quor::toolkit {

namespace {

constexpr const char* localSource = "local";

EventSource readSource(const QByteArray& root, const QByteArray& name)
{
    const QString identifier = QString::fromUtf8(name);
    const QString title = readProperties(CalendarDirectory(root, {name, {}})).title;
    return {identifier, title.isEmpty() ? identifier : title};
}

} // namespace

CalendarTree::CalendarTree(QByteArray root)
    : root_(std::move(root))
{
}

void CalendarTree::refresh(Listing listing)
{
    if (root_.isEmpty())
        return;
    if (!watch_)
        watch_ = std::make_unique<FolderWatch>(root_);
    const FolderWatch::Changes changes = watch_->drain();
    if (!isListed_ || listing == Listing::always || changes.folders || !isWatched())
        list();
    for (const auto& [path, folder] : folders_) {
        if (changes.calendars.contains(path) || !watch_->isWatched(path))
            folder->markAllChanged();
        if (const auto files = changes.files.find(path); files != changes.files.end())
            folder->markChanged(files->second);
    }
}

/// Whether folders that come or go are reported.
bool CalendarTree::isWatched() const
{
    return watch_->isWatched({}) && std::ranges::all_of(sources_, [&](const EventSource& each) {
        return watch_->isWatched({each.sourceIdentifier.toUtf8(), {}});
    });
}

void CalendarTree::list()
{
    const auto paths = watch_->list();
    isListed_ = paths.has_value();
    if (!paths)
        return;
    std::set<CalendarPath> found;
    sources_.clear();
    sources_.push_back(readSource(root_, localSource));
    for (const CalendarPath& path : *paths) {
        found.insert(path);
        if (path.calendar.isEmpty()) {
            if (path.source != localSource)
                sources_.push_back(readSource(root_, path.source));
        } else if (auto& folder = folders_[path]; !folder) {
            folder = std::make_unique<CalendarFolder>(root_, path);
        }
    }
    std::ranges::stable_sort(sources_.begin() + 1, sources_.end(), {}, &EventSource::title);
    // A folder that is gone is kept while edits are staged in it: their commit reports the failure.
    std::erase_if(folders_,
        [&](const auto& each) { return !found.contains(each.first) && !each.second->hasStagedFiles(); });
}

EventSource CalendarTree::source(const QByteArray& name) const
{
    const QString identifier = QString::fromUtf8(name);
    const auto found = std::ranges::find(sources_, identifier, &EventSource::sourceIdentifier);
    return found == sources_.end() ? EventSource{identifier, identifier} : *found;
}

CalendarFolder* CalendarTree::folder(const CalendarPath& path) const
{
    const auto found = folders_.find(path);
    return found == folders_.end() ? nullptr : found->second.get();
}

std::vector<CalendarFolder*> CalendarTree::folders(
    const std::optional<std::vector<QString>>& calendarIdentifiers) const
{
    std::vector<CalendarFolder*> found;
    for (const auto& [path, folder] : folders_) {
        if (!calendarIdentifiers
            || std::ranges::find(*calendarIdentifiers, folder->identifier()) != calendarIdentifiers->end())
            found.push_back(folder.get());
    }
    return found;
}

} // namespace quor::toolkit
