// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/FolderWatch.h"

#include "ToolKit/Calendar/Files/CalendarDirectory.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include <sys/inotify.h>

namespace quor::toolkit {

namespace {

constexpr std::uint32_t watchedChanges = IN_CLOSE_WRITE | IN_MOVED_FROM | IN_MOVED_TO | IN_CREATE | IN_DELETE
    | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR | IN_DONT_FOLLOW;

/// Returns `nullopt` if the folder could not be opened for the moment, otherwise the names, sorted.
std::optional<std::vector<QByteArray>> subfolders(const CalendarDirectory& folder)
{
    if (isTemporary(folder.openError()))
        return std::nullopt;
    auto names = folder.names(S_IFDIR);
    std::ranges::sort(names);
    return names;
}

} // namespace

FolderWatch::FolderWatch(QByteArray root)
    : root_(std::move(root))
    , inotify_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
}

void FolderWatch::watch(const CalendarPath& path)
{
    if (!inotify_ || watches_.contains(path))
        return;
    // Users may make the root itself a link.
    const bool isRoot = path.source.isEmpty();
    const auto mask = isRoot ? watchedChanges & ~std::uint32_t(IN_DONT_FOLLOW) : watchedChanges;
    const int watch
        = inotify_add_watch(inotify_.get(), (isRoot ? root_ : path.below(root_)).constData(), mask);
    if (watch < 0)
        return;
    // A folder that was renamed keeps its watch.
    if (const auto known = paths_.find(watch); known != paths_.end())
        watches_.erase(known->second);
    paths_[watch] = path;
    watches_[path] = watch;
}

std::optional<std::vector<CalendarPath>> FolderWatch::list()
{
    // Each folder is watched before it is read, so that no change falls in between.
    std::vector<CalendarPath> paths;
    watch({});
    const auto sources = subfolders(CalendarDirectory(root_, {}));
    if (!sources)
        return std::nullopt;
    for (const QByteArray& source : *sources) {
        watch({source, {}});
        paths.push_back({source, {}});
        const auto calendars = subfolders(CalendarDirectory(root_, {source, {}}));
        if (!calendars)
            return std::nullopt;
        for (const QByteArray& calendar : *calendars) {
            watch({source, calendar});
            paths.push_back({source, calendar});
        }
    }
    return paths;
}

void FolderWatch::forget(int watch)
{
    const auto known = paths_.find(watch);
    if (known == paths_.end())
        return;
    watches_.erase(known->second);
    paths_.erase(known);
}

void FolderWatch::note(int watch, unsigned mask, const QByteArray& name, Changes& changes)
{
    if (mask & IN_Q_OVERFLOW) {
        changes.folders = true;
        for (const auto& [path, number] : watches_)
            changes.calendars.insert(path);
        return;
    }
    const auto known = paths_.find(watch);
    if (known == paths_.end())
        return;
    const CalendarPath path = known->second;
    if (mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) {
        changes.folders = true;
        changes.calendars.insert(path);
        if (mask & IN_MOVE_SELF)
            inotify_rm_watch(inotify_.get(), watch);
        forget(watch);
    } else if (path.calendar.isEmpty()) {
        // A folder may have taken the place of another one under the same name.
        changes.folders = changes.folders || !name.startsWith('.');
        if (!name.isEmpty() && !path.source.isEmpty() && (mask & (IN_CREATE | IN_MOVED_TO)))
            changes.calendars.insert({path.source, name});
    } else if (name.isEmpty()) {
        changes.folders = true; // its permissions
    } else if (!name.startsWith('.')) {
        changes.files[path].insert(name);
    }
}

FolderWatch::Changes FolderWatch::drain()
{
    Changes changes;
    alignas(inotify_event) std::array<char, std::size_t{64} * 1024> buffer;
    while (inotify_) {
        const ssize_t size = read(inotify_.get(), buffer.data(), buffer.size());
        if (size <= 0)
            break;
        for (ssize_t position = 0; position < size;) {
            inotify_event event;
            std::memcpy(&event, buffer.data() + position, sizeof event);
            const char* const name = buffer.data() + position + sizeof event;
            note(event.wd, event.mask, event.len > 0 ? QByteArray(name) : QByteArray(), changes);
            position += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
    return changes;
}

} // namespace quor::toolkit
