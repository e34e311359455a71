// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace quor::toolkit {

/// The folder of a calendar or of a source, relative to the root folder. Neither name is hidden. Neither
/// folder is a symbolic link.
struct CalendarPath {
    QByteArray source;
    QByteArray calendar; ///< empty for the source itself; both are empty for the root

    /// Returns an empty path for a text that `identifier` cannot return.
    [[nodiscard]] static CalendarPath fromIdentifier(const QString& identifier)
    {
        const QByteArray name = identifier.toUtf8();
        const qsizetype slash = name.indexOf('/');
        return slash < 0 ? CalendarPath() : CalendarPath{name.first(slash), name.sliced(slash + 1)};
    }
    /// `EventCalendar::calendarIdentifier`: "<source>/<calendar>".
    [[nodiscard]] QString identifier() const { return QString::fromUtf8(source + '/' + calendar); }
    [[nodiscard]] QByteArray below(const QByteArray& root) const
    {
        return calendar.isEmpty() ? root + '/' + source : root + '/' + source + '/' + calendar;
    }

    friend bool operator==(const CalendarPath&, const CalendarPath&) = default;
    friend bool operator<(const CalendarPath& left, const CalendarPath& right)
    {
        return left.source == right.source ? left.calendar < right.calendar : left.source < right.source;
    }
};

} // namespace quor::toolkit
