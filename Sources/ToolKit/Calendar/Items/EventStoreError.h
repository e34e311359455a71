// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <utility>

namespace quor::toolkit {

/// Why something could not be saved, removed or committed. The text is in English, for a log or a developer.
class EventStoreError final {
public:
    enum class Kind {
        accessDenied, ///< the user refused access
        invalid, ///< no calendar or source, dates out of range or in the wrong order, a malformed rule
        notFound, ///< the item or calendar is not there (any more)
        conflict, ///< another program changed the same thing since it was read here; its change stands
        readOnly, ///< a folder or file that may not be written
        full, ///< no room on the disk
        unreadable, ///< a file that is broken or too large, which is never written over
        failed, ///< anything else; the description tells
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

} // namespace quor::toolkit
