// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/FolderWatch.h"

#include "ToolKit/Calendar/Files/CalendarDirectory.h"

#include <array>
#include <cstring>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

namespace quor::toolkit {

namespace {

constexpr std::uint32_t interesting = IN_CLOSE_WRITE | IN_MOVED_FROM | IN_MOVED_TO | IN_CREATE | IN_DELETE
    | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR | IN_DONT_FOLLOW;

} // namespace

FolderWatch::FolderWatch(QByteArray root)
    : root_(std::move(root))
    , descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
}

FolderWatch::~FolderWatch()
{
    if (descriptor_ >= 0)
        close(descriptor_);
}

void FolderWatch::watch(const CalendarPath& path, const QByteArray& folder)
{
    if (descriptor_ < 0 || byPath_.contains(path))
        return;
    // The root itself may be a link of the user's.
    const auto mask = path.source.isEmpty() ? interesting & ~std::uint32_t(IN_DONT_FOLLOW) : interesting;
    const int watch = inotify_add_watch(descriptor_, folder.constData(), mask);
    if (watch < 0)
        return;
    // A folder that was renamed keeps its watch.
    if (const auto known = byWatch_.find(watch); known != byWatch_.end())
        byPath_.erase(known->second);
    byWatch_[watch] = path;
    byPath_[path] = watch;
}

std::vector<CalendarPath> FolderWatch::list()
{
    // A folder is watched before it is read, so that nothing falls in between.
    std::vector<CalendarPath> paths;
    watch({}, root_);
    for (const QByteArray& source : subfolders(root_)) {
        const QByteArray folder = root_ + '/' + source;
        watch({source, {}}, folder);
        paths.push_back({source, {}});
        for (const QByteArray& calendar : subfolders(folder)) {
            watch({source, calendar}, folder + '/' + calendar);
            paths.push_back({source, calendar});
        }
    }
    return paths;
}

void FolderWatch::forget(int watch)
{
    const auto known = byWatch_.find(watch);
    if (known == byWatch_.end())
        return;
    byPath_.erase(known->second);
    byWatch_.erase(known);
}

void FolderWatch::note(int watch, unsigned mask, const QByteArray& name, Changes& changes)
{
    if (mask & IN_Q_OVERFLOW) {
        changes.folders = true;
        for (const auto& [path, number] : byPath_)
            changes.all.insert(path.identifier());
        return;
    }
    const auto known = byWatch_.find(watch);
    if (known == byWatch_.end())
        return;
    const CalendarPath path = known->second;
    if (mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) {
        changes.folders = true;
        changes.all.insert(path.identifier());
        if (mask & IN_MOVE_SELF)
            inotify_rm_watch(descriptor_, watch);
        forget(watch);
    } else if (path.calendar.isEmpty()) {
        // What a folder is may have changed as well as its being there.
        changes.folders = changes.folders || !name.startsWith('.');
        if (!name.isEmpty() && !path.source.isEmpty() && (mask & (IN_CREATE | IN_MOVED_TO)))
            changes.all.insert(CalendarPath{path.source, name}.identifier());
    } else if (name.isEmpty()) {
        changes.folders = true; // whether it may be written
    } else if (!name.startsWith('.')) {
        changes.files[path.identifier()].insert(name);
    }
}

FolderWatch::Changes FolderWatch::drain()
{
    Changes changes;
    alignas(inotify_event) std::array<char, 64 * 1024> buffer;
    while (descriptor_ >= 0) {
        const ssize_t size = read(descriptor_, buffer.data(), buffer.size());
        if (size <= 0)
            break;
        for (ssize_t at = 0; at < size;) {
            inotify_event event;
            std::memcpy(&event, buffer.data() + at, sizeof event);
            const char* const name = buffer.data() + at + sizeof event;
            note(event.wd, event.mask, event.len > 0 ? QByteArray(name) : QByteArray(), changes);
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
    return changes;
}

} // namespace quor::toolkit
