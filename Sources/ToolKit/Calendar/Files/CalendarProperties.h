// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarDirectory.h"

#include <QColor>
#include <QString>

#include <optional>

namespace quor::toolkit {

/// The title and the colour of a calendar or a source, which stand in small files of their own beside the
/// items.
struct CalendarProperties {
    QString title; ///< empty if there is no file `displayname`
    QColor color; ///< invalid if there is no file `color`, or another text than "#RRGGBB" in it
};

[[nodiscard]] CalendarProperties readProperties(const CalendarDirectory& directory);
/// Whether the file holds the title or the colour.
[[nodiscard]] bool isPropertyFile(const QByteArray& name);

/// A change of a calendar's properties, or a new calendar, that is not written yet.
struct CalendarPropertiesChange {
    CalendarPath path;
    bool isNew = false; ///< its folder is to be made
    std::optional<QString> title; ///< `nullopt` leaves the file as it is, an empty one removes it
    std::optional<QColor> color; ///< `nullopt` leaves the file as it is, an invalid one removes it

    [[nodiscard]] EventStoreResult write(const QByteArray& root) const;
};

} // namespace quor::toolkit
