// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Fetching/FetchRequest.h"
#include "ToolKit/CoreData/Model/EntityDescription.h"
#include "ToolKit/CoreData/Objects/ManagedObject.h"
#include "ToolKit/CoreData/Objects/RecordClass.h"
#include "ToolKit/CoreData/Store/SaveOutcome.h"
#include "ToolKit/CoreData/Store/StoreError.h"

#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace quor::toolkit {

/// A view of the records in one SQLite file, and the changes that were made to them and not saved yet:
///
///     ManagedObjectContext context(path, {EntityDescription::of<Task>({{u"uniqueID"_s}, {u"name"_s}})});
///     if (context.openError()) ...
///     auto task = context.fetchSingleton<Task>(identifier);
///     task.setName(u"Design"_s);
///     if (const auto outcome = context.save(); !outcome) ...
///
/// Fetches see pending changes as if they were saved; nothing but `save` writes records to the file. Any
/// number of contexts, in any number of processes, may have one file open. A fetch brings what others have
/// saved into the records that have no changes here. Of a record that two contexts changed, each save
/// writes the attributes that were changed there, so that the last one counts, attribute by attribute; a
/// deleted record stays deleted (see `SaveOutcome`).
///
/// Any thread: each operation runs in its turn on the context's private queue. What must not be divided,
/// such as a fetch and the change that it leads to, goes into one `performBlockAndWait`.
class ManagedObjectContext final {
public:
    /// Opens the file or makes it, readable to its owner only; its folder must be there. Tables and columns
    /// that it lacks are added, waiting for other processes if need be; what the entities do not name stays
    /// in it. A file that may only be read opens for that. `busyTimeout` is how long a save waits for
    /// others'.
    explicit ManagedObjectContext(const QString& path, std::vector<EntityDescription> entities,
        std::chrono::milliseconds busyTimeout = std::chrono::seconds(5));

    /// Waits for the blocks of `performBlock`, unless it is called in one. Pending changes are lost.
    ~ManagedObjectContext();
    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;

    /// Why there is no store. Such a context knows no entity, so it gives empty answers to everything, and
    /// there is nothing that it could save.
    [[nodiscard]] const std::optional<StoreError>& openError() const;

    /// The description of that name. None where there is no store. Lasts as long as the context.
    [[nodiscard]] const EntityDescription* entity(QStringView name) const;

    /// Runs the block on the calling thread in its turn on the queue, and returns what it returned. Blocks
    /// may be nested. A block must not throw, nor wait for another thread that may need this context.
    template <class Block>
    std::invoke_result_t<Block&> performBlockAndWait(Block&& block);

    /// Runs the block later, on a thread of the queue's own.
    void performBlock(std::function<void()> block);

    // Changes.

    /// A new record, with all attributes empty. A plain one, attached to nothing, for an unknown entity.
    [[nodiscard]] ManagedObject insertObject(QStringView entityName);
    template <RecordClass Record>
    [[nodiscard]] Record insertObject()
    {
        return recordOf<Record>(insertObject(plainClassName<Record>()));
    }

    /// False, with no effect, for a record that is deleted already or is not of this context.
    bool deleteObject(const ManagedObject& object);

    [[nodiscard]] bool hasChanges() const;
    [[nodiscard]] std::vector<ManagedObject> insertedObjects() const;
    [[nodiscard]] std::vector<ManagedObject> updatedObjects() const;
    [[nodiscard]] std::vector<ManagedObject> deletedObjects() const; ///< those that are in the file

    /// Writes all changes in one transaction, which is on the disk on return; a file without changes is not
    /// touched. After a failure everything is pending as before, and a later save tries again. A file that
    /// was removed or replaced since it was opened is not written any more.
    SaveOutcome save();

    /// Drops all changes since the last save. Records inserted since are deleted for good.
    void rollback();

    // Fetches that tell what went wrong, in `error` where given.

    [[nodiscard]] std::optional<std::vector<ManagedObject>> execute(
        const FetchRequest& request, StoreError* error = nullptr) const;
    /// How many records match, whatever the limit.
    [[nodiscard]] std::optional<qint64> count(const FetchRequest& request, StoreError* error = nullptr) const;

    /// The identity that has this URI, if it is one of this store's saved records, there or not.
    [[nodiscard]] std::optional<ManagedObjectID> objectID(QStringView uri) const;
    /// The record of that identity; none if it was deleted, or is temporary and of another context.
    [[nodiscard]] std::optional<ManagedObject> existingObject(
        const ManagedObjectID& objectID, StoreError* error = nullptr) const;

    // The store helpers, which answer every failure, an unknown entity too, with nothing. The entity of
    // records has the plain name of their class and a text attribute "uniqueID".

    template <RecordClass Record>
    [[nodiscard]] qint64 count(const std::optional<Predicate>& predicate = std::nullopt) const
    {
        return count(FetchRequest{plainClassName<Record>(), predicate}).value_or(0);
    }
    template <RecordClass Record = ManagedObject>
    [[nodiscard]] std::vector<Record> fetch(const FetchRequest& request) const
    {
        return recordsOf<Record>(execute(request));
    }
    template <RecordClass Record>
    [[nodiscard]] std::vector<Record> fetch(const std::optional<Predicate>& predicate = std::nullopt,
        const std::vector<SortDescriptor>& sortDescriptors = {},
        std::optional<int> limit = std::nullopt) const
    {
        return fetch<Record>(FetchRequest{plainClassName<Record>(), predicate, sortDescriptors, limit});
    }
    template <RecordClass Record>
    [[nodiscard]] std::optional<Record> fetchFirst(
        const std::optional<Predicate>& predicate = std::nullopt) const
    {
        return firstOf(fetch<Record>(predicate, {}, 1));
    }
    template <RecordClass Record>
    [[nodiscard]] std::optional<Record> fetchObject(const QString& uniqueIdentifier) const
    {
        return fetchFirst<Record>(Predicate(u"(uniqueID == %@)", {uniqueIdentifier}));
    }
    /// Those that there are, in no particular order.
    template <RecordClass Record>
    [[nodiscard]] std::vector<Record> fetchObjects(const QStringList& uniqueIdentifiers) const
    {
        return fetch<Record>(Predicate(u"(uniqueID IN %@)", {uniqueIdentifiers}));
    }
    [[nodiscard]] std::optional<ManagedObject> fetchObject(
        const QString& entityName, const QString& uniqueIdentifier) const;
    [[nodiscard]] std::vector<ManagedObject> fetchObjects(const QString& entityName,
        const std::optional<Predicate>& predicate = std::nullopt,
        std::optional<int> limit = std::nullopt) const;

    /// The one record with that "uniqueID", made if there is none; without an identifier, the one record of
    /// the class. Where there are several, as when two devices made the same one, all but the one whose
    /// identity has the last URI are deleted, which a line in the error log tells. Nothing of this is saved
    /// yet. A plain record for an unknown entity, and for an identifier that is not storable or of an entity
    /// without that attribute.
    template <RecordClass Record>
    [[nodiscard]] Record fetchSingleton(const std::optional<QString>& uniqueIdentifier = std::nullopt)
    {
        // In one block, so that no other thread makes the same record in between.
        return recordOf<Record>(performBlockAndWait([&] {
            return fetchSingleton(plainClassName<Record>(), qualifiedClassName<Record>(), uniqueIdentifier);
        }));
    }

private:
    struct State;

    void perform(const std::function<void()>& block) const;
    [[nodiscard]] ManagedObject fetchSingleton(
        const QString& entityName, const QString& className, const std::optional<QString>& uniqueIdentifier);

    template <class Record>
    static std::vector<Record> recordsOf(const std::optional<std::vector<ManagedObject>>& objects)
    {
        std::vector<Record> records;
        if (!objects)
            return records;
        records.reserve(objects->size());
        for (const ManagedObject& object : *objects)
            records.push_back(recordOf<Record>(object));
        return records;
    }
    template <class Record>
    static std::optional<Record> firstOf(const std::vector<Record>& records)
    {
        return records.empty() ? std::nullopt : std::optional<Record>(records.front());
    }

    std::unique_ptr<State> state_;
};

template <class Block>
std::invoke_result_t<Block&> ManagedObjectContext::performBlockAndWait(Block&& block)
{
    if constexpr (std::is_void_v<std::invoke_result_t<Block&>>) {
        perform(std::ref(block));
    } else {
        std::optional<std::invoke_result_t<Block&>> result;
        perform([&] { result.emplace(block()); });
        return *std::move(result);
    }
}

} // namespace quor::toolkit
