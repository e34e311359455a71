// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <map>
#include <set>
#include <vector>

namespace quor::toolkit {

/// Where a calendar lies below the root. Neither name is hidden, nor reached through a symbolic link.
struct CalendarPath {
    QByteArray source;
    QByteArray calendar; ///< empty: the source itself

    [[nodiscard]] QByteArray identifier() const { return source + '/' + calendar; }
    friend bool operator==(const CalendarPath&, const CalendarPath&) = default;
    friend bool operator<(const CalendarPath& a, const CalendarPath& b)
    {
        return a.source == b.source ? a.calendar < b.calendar : a.source < b.source;
    }
};

/// The folders of a root as they are, and which of their files changed since it was last asked, by inotify.
/// Has no thread: changes wait in the kernel until somebody drains them. Not to be used by two threads at
/// once.
class FolderWatch final {
public:
    struct Changes {
        bool folders = false; ///< folders came or went: call `list`
        std::map<QByteArray, std::set<QByteArray>> files; ///< by the calendar's identifier
        std::set<QByteArray> all; ///< calendars of which everything may have changed

        [[nodiscard]] bool isEmpty() const { return !folders && files.empty() && all.empty(); }
    };

    explicit FolderWatch(QByteArray root);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// Sources and calendars, and begins to watch those that are new.
    [[nodiscard]] std::vector<CalendarPath> list();
    [[nodiscard]] Changes drain();

    /// False where the machine can watch no more folders: then only looking tells.
    [[nodiscard]] bool isWatched(const CalendarPath& path) const { return byPath_.contains(path); }
    [[nodiscard]] bool isRootWatched() const { return isWatched({}); }
    [[nodiscard]] int descriptor() const { return descriptor_; }

private:
    void watch(const CalendarPath& path, const QByteArray& folder);
    void forget(int watch);
    void note(int watch, unsigned mask, const QByteArray& name, Changes& changes);

    QByteArray root_;
    int descriptor_;
    std::map<int, CalendarPath> byWatch_; ///< the root has neither name
    std::map<CalendarPath, int> byPath_;
};

} // namespace quor::toolkit
