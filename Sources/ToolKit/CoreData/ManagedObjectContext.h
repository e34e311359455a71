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

/// The records of a store, which is one SQLite file, together with changes that are not saved yet:
///
///     ManagedObjectContext context(path, {EntityDescription::of<Task>({{u"uniqueID"_s}, {u"name"_s}})});
///     if (context.openError()) ...
///     auto task = context.fetchSingleton<Task>(identifier);
///     task.setName(u"Design"_s);
///     if (const auto outcome = context.save(); !outcome) ...
///
/// Fetches treat pending changes as if they were saved. Only `save` writes records to the file.
///
/// Any number of contexts, in any number of processes, can have the same file open. A fetch updates the
/// records that have no changes here with what others have saved. A save writes only the attributes that were
/// changed in this context; if two contexts change the same attribute, the last save wins. A record that
/// another context has deleted stays deleted (see `SaveOutcome`).
///
/// A store on a full disk can be opened and read. If no process has it open then, the first one has it alone:
/// contexts of other processes fail with `locked` until the contexts of this process end.
///
/// Any thread: each operation waits for its turn on the private queue of the context. Put operations that
/// must not be separated, such as a fetch and a change that depends on it, into one `performBlockAndWait`.
class ManagedObjectContext final {
public:
    /// Opens the file, or creates it, readable only by its owner. The folder must exist. Missing tables and
    /// columns are added; tables and columns that are not in `entities` stay in the file. A read-only file is
    /// opened for reading. `busyTimeout` is how long opening and saving wait for other writers.
    explicit ManagedObjectContext(const QString& path, std::vector<EntityDescription> entities,
        std::chrono::milliseconds busyTimeout = std::chrono::seconds(5));

    /// Waits until the blocks of `performBlock` have run, and drops pending changes. If one of these blocks
    /// destroys the context, the destructor does not wait: later blocks still run, and must not use the
    /// context.
    ~ManagedObjectContext();
    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;

    /// The reason why the file could not be opened; `nullopt` if it is open. After a failure the context has
    /// no entities and no records: fetches and `save` fail with this error.
    [[nodiscard]] const std::optional<StoreError>& openError() const;

    /// The description of the entity with that name, owned by the context. Null if there is no such entity,
    /// or after an `openError`.
    [[nodiscard]] const EntityDescription* entity(QStringView name) const;

    /// Waits for its turn on the queue, runs the block on the calling thread and returns the block's result.
    /// Blocks can be nested. A block must not throw, and must not wait for a thread that uses this context.
    template <class Block>
    std::invoke_result_t<Block&> performBlockAndWait(Block&& block);

    /// Submits the block and returns. The block runs later, on the thread of the queue. It may destroy the
    /// context.
    void performBlock(std::function<void()> block);

    // Changes.

    /// Inserts a record with empty attributes. For an unknown entity it returns a plain record, which belongs
    /// to no context.
    [[nodiscard]] ManagedObject insertObject(QStringView entityName);
    template <RecordClass Record>
    [[nodiscard]] Record insertObject()
    {
        return recordOf<Record>(insertObject(plainClassName<Record>()));
    }

    /// Deletes the record. Returns false, with no effect, if the record is already deleted, belongs to
    /// another context, or is a plain record.
    bool deleteObject(const ManagedObject& object);

    [[nodiscard]] bool hasChanges() const; ///< whether `save` would write something
    [[nodiscard]] std::vector<ManagedObject> insertedObjects() const; ///< those not saved and not deleted
    [[nodiscard]] std::vector<ManagedObject> updatedObjects() const; ///< see `ManagedObject::isUpdated`
    /// The saved records whose deletion is pending. A record that was inserted and deleted between two saves
    /// is in none of these lists.
    [[nodiscard]] std::vector<ManagedObject> deletedObjects() const;

    /// Writes all changes in one transaction and returns when they are on the disk. Does not use the file if
    /// there are no changes. After a failure all changes are still pending, and a later save tries again.
    /// Fails if the file was removed or replaced after it was opened.
    SaveOutcome save();

    /// Drops all changes since the last save. Records that were inserted since then are deleted.
    void rollback();

    // Fetches that return `nullopt` on failure. On failure they also set `error`, if it is not null. On
    // success they leave it unchanged.

    [[nodiscard]] std::optional<std::vector<ManagedObject>> execute(
        const FetchRequest& request, StoreError* error = nullptr) const;
    /// The number of matching records. Ignores the limit.
    [[nodiscard]] std::optional<qint64> count(const FetchRequest& request, StoreError* error = nullptr) const;

    /// The identity with this URI. Returns `nullopt` unless it is the URI of a saved record of this store.
    /// The record need not exist.
    [[nodiscard]] std::optional<ManagedObjectID> objectID(QStringView uri) const;
    /// The record with this identity. Returns `nullopt` if the record does not exist or was deleted, and if
    /// the fetch fails; only a failure sets `error`. An identity that a record had before its first save (a
    /// temporary identity) finds the record only in its own context, and only until that save.
    [[nodiscard]] std::optional<ManagedObject> existingObject(
        const ManagedObjectID& objectID, StoreError* error = nullptr) const;

    // The store helpers. They return an empty result for every failure, also for an unknown entity. A record
    // class needs an entity with the plain name of the class and a text attribute "uniqueID". Without sort
    // descriptors records are in the order of insertion, so `fetchFirst` and `fetchObject` return the oldest
    // match.

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
    /// The existing records with these identifiers. Their order is not that of the identifiers.
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

    /// Returns the record with that "uniqueID", or without an identifier the only record of the class.
    ///
    /// If the fetch finds no record, this inserts one. A fetch that fails, for instance by a read error, also
    /// finds no record. The duplicate that a later save can then write is removed by a later call. If there
    /// are several records, because two devices have created the same record, this deletes all but the one
    /// whose identity has the last URI, and reports that in the error log. The changes are not saved.
    ///
    /// Returns a plain record, which belongs to no context, if the entity is unknown, if the identifier
    /// cannot be stored (see `isStorable`), or if an identifier is given for an entity without a text
    /// attribute "uniqueID".
    template <RecordClass Record>
    [[nodiscard]] Record fetchSingleton(const std::optional<QString>& uniqueIdentifier = std::nullopt)
    {
        // In one block, so that no other thread can insert the same record between the fetch and the insert.
        return recordOf<Record>(performBlockAndWait([&] {
            return fetchSingleton(plainClassName<Record>(), qualifiedClassName<Record>(), uniqueIdentifier);
        }));
    }

private:
    struct State;

    /// `performBlockAndWait` for blocks without a result.
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
