// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarDirectory.h"
#include "ToolKit/Calendar/Items/EntityType.h"

#include <QColor>
#include <QString>

#include <optional>
#include <set>

namespace quor::toolkit {

/// The properties of a calendar or a source, each in a small file of its own beside the items.
struct CalendarProperties {
    QString title; ///< empty if there is no file `displayname`
    QColor color; ///< invalid if there is no file `color`, or another text than "#RRGGBB" in it
    std::set<EntityType> types; ///< those that the file `supported-components` names; empty without one
};

[[nodiscard]] CalendarProperties readProperties(const CalendarDirectory& directory);
/// Whether the file holds one of the properties.
[[nodiscard]] bool isPropertyFile(const QByteArray& name);

/// A change of a calendar's properties, or a new calendar, that is not written yet.
struct CalendarPropertiesChange {
    CalendarPath path;
    bool isNew = false; ///< its folder is to be made
    std::optional<QString> title; ///< `nullopt` leaves the file as it is, an empty one removes it
    std::optional<QColor> color; ///< `nullopt` leaves the file as it is, an invalid one removes it
    std::optional<EntityType> type; ///< `nullopt` leaves the file as it is

    /// If a new calendar cannot be written as a whole, nobody sees it.
    [[nodiscard]] EventStoreResult write(const QByteArray& root) const;
    /// Returns the error of a future `write`, if the permissions do not allow it.
    [[nodiscard]] EventStoreResult obstacle(const QByteArray& root) const;

private:
    [[nodiscard]] EventStoreResult make(const QByteArray& root) const;
    [[nodiscard]] EventStoreResult writeFiles(const CalendarDirectory& directory) const;
};

} // namespace quor::toolkit
