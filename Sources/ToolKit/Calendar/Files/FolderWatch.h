// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Files/FileDescriptor.h"
#include "ToolKit/Calendar/Files/CalendarPath.h"

#include <QByteArray>

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace quor::toolkit {

/// A watch on the folders of calendars below a root, by inotify. Has no thread: the kernel collects the
/// changes until `drain` is called. One thread at a time.
class FolderWatch final {
public:
    struct Changes {
        bool folders = false; ///< folders came or went: call `list`
        std::map<CalendarPath, std::set<QByteArray>> files; ///< the changed files of each calendar
        std::set<CalendarPath> calendars; ///< calendars of which any file may have changed

        [[nodiscard]] bool isEmpty() const { return !folders && files.empty() && calendars.empty(); }
    };

    explicit FolderWatch(QByteArray root);

    /// Returns the sources and calendars that exist, each source before its calendars, by name. Begins to
    /// watch those that are new. Returns `nullopt` if the process can open no folders at the moment.
    [[nodiscard]] std::optional<std::vector<CalendarPath>> list();
    /// Returns the changes since the last call.
    [[nodiscard]] Changes drain();

    /// False for an unknown folder, and where the machine can watch no more folders: then no changes are
    /// reported for it.
    [[nodiscard]] bool isWatched(const CalendarPath& path) const { return watches_.contains(path); }
    /// Readable while changes wait. Borrowed, for `poll`.
    [[nodiscard]] int descriptor() const { return inotify_.get(); }

private:
    void watch(const CalendarPath& path);
    void forget(int watch);
    void note(int watch, unsigned mask, const QByteArray& name, Changes& changes);

    QByteArray root_;
    platform::FileDescriptor inotify_;
    std::map<int, CalendarPath> paths_; ///< by the number of the watch
    std::map<CalendarPath, int> watches_;
};

} // namespace quor::toolkit
