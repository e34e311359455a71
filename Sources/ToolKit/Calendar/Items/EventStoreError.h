// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <utility>

namespace quor::toolkit {

/// The reason why something could not be saved, removed or committed. The text is in English, for a log or
/// a developer.
class EventStoreError final {
public:
    enum class Kind {
        accessDenied, ///< the user has refused access
        invalid, ///< no calendar or source, dates out of range or in the wrong order, a malformed rule
        notFound, ///< the item or the calendar does not exist (any more)
        conflict, ///< another program changed the same thing after it was read here; that change stays
        readOnly, ///< the permissions of a folder or file do not allow to write it
        full, ///< no room on the disk
        unreadable, ///< the file is broken or too large; such a file is never overwritten
        failed, ///< anything else, see the description
    };

    EventStoreError(Kind kind, QString description)
        : kind_(kind)
        , description_(std::move(description))
    {
    }
    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] const QString& description() const { return description_; }

private:
    Kind kind_;
    QString description_;
};

/// The result of a change: `nullopt` if it succeeded.
using EventStoreResult = std::optional<EventStoreError>;

} // namespace quor::toolkit
