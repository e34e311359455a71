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

/// A parsed calendar file. Edits change the parsed components, so that
/// everything else in the file is written again as it was.
class ItemFile final {
public:
    /// A calendar without items.
    ItemFile();
    /// Returns `nullopt` if the bytes are no calendar file, or if the value of a
    /// property that this library reads is malformed. Properties without a value,
    /// which some programs write, are ignored.
    [[nodiscard]] static std::optional<ItemFile> parse(const QByteArray& bytes);

    /// Leaves out items without an identifier and events without a start.
    [[nodiscard]] FileRecords records() const;
    /// Whether the file has no components other than time zones.
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] QByteArray bytes() const;
    /// Returns a copy with only the components that have that identifier, and the
    /// time zones.
    [[nodiscard]] ItemFile extract(const QString& uid) const;

    /// Returns the components of that kind with that identifier. Borrowed.
    [[nodiscard]] std::vector<icalcomponent*> components(icalcomponent_kind kind, const QString& uid) const;
    /// Returns the component among them that is not an override of an occurrence.
    /// Returns null if there is no such component. Borrowed.
    [[nodiscard]] icalcomponent* master(icalcomponent_kind kind, const QString& uid) const;
    /// Adds a component to the first calendar of the file, and returns it.
    /// Borrowed.
    icalcomponent* add(icalcomponent_kind kind, const QString& uid);
    /// Removes and frees a component of this file.
    void remove(icalcomponent* component);

private:
    explicit ItemFile(std::shared_ptr<const std::vector<QByteArray>> originals);
    [[nodiscard]] std::vector<icalcomponent*> calendars() const;

    OwnedComponent root_; ///< libical's XROOT, which holds the calendars
    std::shared_ptr<const std::vector<QByteArray>> originals_; ///< see `MaskedItems.h`
};

/// A change of a file's items. Can be applied again to a newer state of the
/// file, with the same result.
using ItemEdit = std::function<std::optional<EventStoreError>(ItemFile&)>;

} // namespace quor::toolkit
