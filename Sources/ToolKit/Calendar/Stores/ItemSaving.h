// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarTree.h"
#include "ToolKit/Calendar/Items/ItemChange.h"
#include "ToolKit/Calendar/Items/ItemErrors.h"

#include <memory>
#include <optional>
#include <utility>

namespace quor::toolkit {

/// Returns the content of a file with one item alone, for `stageTransfer`. Returns an empty text if the file
/// cannot be read.
[[nodiscard]] QByteArray copyOfItem(CalendarFolder& folder, const QByteArray& file, const QString& uid);

struct FileInFolder {
    CalendarFolder& folder;
    QByteArray file;
};

/// Stages a new file `to` with the item copy `bytes`, edited by `arrive`, and the edit `leave` of the file
/// `from`, which is committed only when the new file is on disk. On failure nothing changes.
[[nodiscard]] EventStoreResult stageTransfer(const FileInFolder& from, const FileInFolder& to,
    const QByteArray& bytes, ItemEdit arrive, ItemEdit leave);

/// Returns the edit that removes an item as long as it still equals the copy `bytes`.
[[nodiscard]] ItemEdit removalOfCopied(const QString& uid, const QByteArray& bytes);

/// Stages what is saved and removed of one type of items: a new item, a changed one, one that moved to
/// another calendar. `Policy` is `EventPolicy` or `ReminderPolicy`, and has what the types differ in.
template <class Policy>
class ItemSaving final {
public:
    using Item = typename Policy::Item;
    using Fields = typename Policy::Fields;

    ItemSaving(const CalendarTree& calendars, Policy policy)
        : calendars_(calendars)
        , policy_(std::move(policy))
    {
    }

    /// Stages the item's fields, and notes in it where it is now.
    [[nodiscard]] EventStoreResult save(const std::shared_ptr<Item>& item) const
    {
        const auto state = item ? item->state() : ItemState<Fields>();
        if (!state.calendar)
            return invalid(QStringLiteral("the %1 has no calendar").arg(Policy::name));
        if (auto defect = defectOf(state.fields, state.saved))
            return defect;
        const QString identifier = state.calendar->calendarIdentifier();
        CalendarFolder* const target = calendars_.folder(identifier);
        if (!target)
            return notFound(QStringLiteral("the calendar ") + identifier);
        ItemPlace place = state.place;
        if (auto failure = stage(*target, state, place))
            return failure;
        place.calendarIdentifier = identifier;
        const FileRecords* const records = target->records(place.file);
        const auto saved = records ? policy_.readBack(*records, place) : std::nullopt;
        item->setSaved(state.fields, saved.value_or(state.fields), place);
        return std::nullopt;
    }

    [[nodiscard]] EventStoreResult remove(const std::shared_ptr<Item>& item) const
    {
        if (!item)
            return invalid(QStringLiteral("there is no %1").arg(Policy::name));
        const auto [fields, saved, place, calendar] = item->state();
        CalendarFolder* const folder = calendars_.folder(place.calendarIdentifier);
        if (!folder)
            return notFound(place.uid);
        const QByteArray file = folder->fileOf(place.uid, place.file);
        if (file.isEmpty())
            return notFound(place.uid);
        return folder->stage(file, policy_.removal({place.uid, place.occurrence, saved, saved, false}));
    }

private:
    EventStoreResult stage(CalendarFolder& target, const ItemState<Fields>& state, ItemPlace& place) const
    {
        const bool isNew = place.calendarIdentifier.isEmpty();
        const ItemChange<Fields> change{place.uid, place.occurrence, state.saved, state.fields, isNew};
        const auto save = [change](ItemFile& file) { return saveItem(file, change); };
        if (isNew) {
            place.file = target.newFile(place.uid);
            return target.stage(place.file, save);
        }
        CalendarFolder* const source = calendars_.folder(place.calendarIdentifier);
        if (!source)
            return notFound(place.uid);
        const QByteArray file = source->fileOf(place.uid, place.file);
        if (file.isEmpty())
            return notFound(place.uid);
        if (source == &target) {
            place.file = file;
            return policy_.saveInPlace(target, change, place);
        }
        const QByteArray bytes = copyOfItem(*source, file, place.uid);
        place.file = target.newFile(place.uid);
        return stageTransfer(
            {*source, file}, {target, place.file}, bytes, save, removalOfCopied(place.uid, bytes));
    }

    const CalendarTree& calendars_;
    Policy policy_;
};

} // namespace quor::toolkit
