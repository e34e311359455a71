// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarFolder.h"
#include "ToolKit/Calendar/Files/FolderWatch.h"
#include "ToolKit/Calendar/Items/EventSource.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// The sources and calendars below one root folder, which `refresh` brings up to date with the disk. One
/// thread at a time.
class CalendarTree final {
public:
    /// An empty `root` holds nothing.
    explicit CalendarTree(QByteArray root);

    enum class Listing {
        ifChanged, ///< lists the folders if some came or went
        always,
    };
    /// Notes what changed on disk since the last call. To be called before each operation.
    void refresh(Listing listing = Listing::ifChanged);

    [[nodiscard]] const QByteArray& root() const { return root_; }
    /// "local" first, then the others by title.
    [[nodiscard]] const std::vector<EventSource>& sources() const { return sources_; }
    /// Returns the source of that folder's name, or one without a title of its own if it is unknown.
    [[nodiscard]] EventSource source(const QByteArray& name) const;

    /// Returns null if there is no such calendar.
    [[nodiscard]] CalendarFolder* folder(const CalendarPath& path) const;
    [[nodiscard]] CalendarFolder* folder(const QString& calendarIdentifier) const
    {
        return folder(CalendarPath::fromIdentifier(calendarIdentifier));
    }
    /// Returns the folders of those calendars that exist, or of all calendars.
    [[nodiscard]] std::vector<CalendarFolder*> folders(
        const std::optional<std::vector<QString>>& calendarIdentifiers = std::nullopt) const;

private:
    void list();
    [[nodiscard]] bool isWatched() const;

    const QByteArray root_;
    std::vector<EventSource> sources_;
    std::unique_ptr<FolderWatch> watch_; ///< null before the first refresh
    std::map<CalendarPath, std::unique_ptr<CalendarFolder>> folders_;
    bool isListed_ = false; ///< false if the folders could not be listed
};

} // namespace quor::toolkit
