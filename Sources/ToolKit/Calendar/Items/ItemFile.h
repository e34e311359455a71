// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/EventStoreError.h"
#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <libical/ical.h>

namespace quor::toolkit {

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using OwnedComponent = std::unique_ptr<icalcomponent, FreeComponent>;

/// A parsed calendar file. Edits are made in the parsed components, so that whatever else the file holds is
/// written again as it was.
class ItemFile final {
public:
    /// A calendar without items.
    ItemFile();
    /// None for what is no calendar, or holds a line of those read here that cannot be read. Of these,
    /// properties without a value, which some programs write, count as absent.
    [[nodiscard]] static std::optional<ItemFile> parse(const QByteArray& bytes);

    /// Items without an identifier, or events without a start, are left alone and not listed.
    [[nodiscard]] FileRecords records() const;
    [[nodiscard]] bool isEmpty() const; ///< no components but time zones
    [[nodiscard]] QByteArray bytes() const;
    /// A file with the components of that identifier alone.
    [[nodiscard]] ItemFile extract(const QString& uid) const;

    /// The components of that kind with that identifier.
    [[nodiscard]] std::vector<icalcomponent*> components(icalcomponent_kind kind, const QString& uid) const;
    /// A new one, in the first calendar.
    icalcomponent* add(icalcomponent_kind kind, const QString& uid);
    void remove(icalcomponent* component);

private:
    explicit ItemFile(OwnedComponent root);
    [[nodiscard]] std::vector<icalcomponent*> calendars() const;

    OwnedComponent root_; ///< a VCALENDAR, or libical's XROOT around several
};

/// A change of a file's items, that can be made again on a newer state of it.
using ItemEdit = std::function<std::optional<EventStoreError>(ItemFile&)>;

} // namespace quor::toolkit
