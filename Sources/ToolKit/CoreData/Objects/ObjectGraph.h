// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ContextQueue.h"
#include "ToolKit/CoreData/Objects/ManagedObjectID.h"
#include "ToolKit/CoreData/Objects/ManagedRecord.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quor::toolkit {

/// The records of a context and their changes since the last save. Each record of the store has at most one
/// `ManagedRecord`. The graph knows no files.
///
/// Records own their graph, so that a handle can always wait for its queue. `queue`, `entities`, `entity` and
/// `entityIndex` can be called on any thread, everything else only in blocks on the queue.
class ObjectGraph final : public std::enable_shared_from_this<ObjectGraph> {
public:
    using Record = std::shared_ptr<ManagedRecord>;

    /// The first number for records that are not saved yet.
    static constexpr qint64 firstTemporary = qint64{1} << 62;

    explicit ObjectGraph(std::vector<EntityDescription> entities);

    [[nodiscard]] ContextQueue& queue() { return queue_; }
    [[nodiscard]] const std::vector<EntityDescription>& entities() const { return entities_; }
    [[nodiscard]] const EntityDescription& entity(const ManagedRecord& record) const
    {
        return entities_[record.entity];
    }
    [[nodiscard]] std::optional<std::size_t> entityIndex(QStringView name) const;

    /// Sets the store that the identities of saved records name.
    void setStore(const QString& identifier) { store_ = identifier; }
    [[nodiscard]] ManagedObjectID objectID(const ManagedRecord& record) const;

    [[nodiscard]] Record insert(std::size_t entity);
    /// Marks the record as deleted. Returns false if it is deleted already.
    bool remove(const Record& record);
    /// Returns false, with no effect, as `ManagedObject::setValue` says.
    bool setValue(const Record& record, QStringView key, const AttributeValue& value);
    void rollback();

    /// Call this after all changes were saved. `numbers` has the new number of each record in `inserted`; 0
    /// for records that were deleted before the save.
    void setSaved(const std::vector<qint64>& numbers);
    /// Call this for a record that another context has deleted from the file.
    void setDeleted(ManagedRecord& record);

    /// The record with this number; null if the graph does not have it.
    [[nodiscard]] Record known(std::size_t entity, qint64 number) const;
    /// The record with this number. It is created, with empty values, if the graph does not have it.
    [[nodiscard]] Record provide(std::size_t entity, qint64 number);

    // The records that were inserted, and the saved records that were changed or deleted, in the order of
    // their first change. Some have no changes any more: check each record with `isDirty`.
    [[nodiscard]] const std::vector<Record>& inserted() const { return inserted_; }
    [[nodiscard]] const std::vector<Record>& changed() const { return changed_; }
    [[nodiscard]] bool hasChanges() const;

    /// The records that were changed since the last call of `setOverlaid`.
    [[nodiscard]] const std::vector<Record>& awaitingOverlay() const { return awaitingOverlay_; }
    void setOverlaid();

    /// Drops the pending changes and refuses further ones. Called when the context ends.
    void end();
    [[nodiscard]] bool isEnded() const { return isEnded_; }

private:
    /// The saved records of one entity that have handles.
    struct Registry {
        std::unordered_map<qint64, std::weak_ptr<ManagedRecord>> records;
        std::size_t sweepAt = 1000; ///< the size at which records without handles are removed
    };

    void add(const Record& record);
    void setChanged(const Record& record);
    void clearChanges();

    const std::vector<EntityDescription> entities_;
    const QString token_; ///< part of temporary identities, so that they differ from those of other contexts
    QString store_;
    ContextQueue queue_;
    std::vector<Registry> registries_; ///< by entity
    std::vector<Record> inserted_; ///< numbered from `firstInserted_` on
    qint64 firstInserted_ = firstTemporary;
    std::vector<Record> changed_;
    std::vector<Record> awaitingOverlay_;
    bool isEnded_ = false;
};

} // namespace quor::toolkit
