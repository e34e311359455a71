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

/// The records of a context, each once, and what has changed in them since the last save. Knows nothing of
/// files. Records hold their graph, so that a handle can always wait on its queue; `end` lets go of them.
/// All but `queue` and the entities belongs to blocks on the queue.
class ObjectGraph final : public std::enable_shared_from_this<ObjectGraph> {
public:
    using Record = std::shared_ptr<ManagedRecord>;

    /// Numbers of records that were not saved yet begin here.
    static constexpr qint64 firstTemporary = qint64{1} << 62;

    explicit ObjectGraph(std::vector<EntityDescription> entities);

    [[nodiscard]] ContextQueue& queue() { return queue_; }
    [[nodiscard]] const std::vector<EntityDescription>& entities() const { return entities_; }
    [[nodiscard]] const EntityDescription& entity(const ManagedRecord& record) const
    {
        return entities_[record.entity];
    }
    [[nodiscard]] std::optional<std::size_t> entityIndex(QStringView name) const;

    /// Where saved records are.
    void setStore(const QString& identifier) { store_ = identifier; }
    [[nodiscard]] ManagedObjectID objectID(const ManagedRecord& record) const;

    [[nodiscard]] Record insert(std::size_t entity);
    bool remove(const Record& record); ///< false if that was done before
    bool setValue(const Record& record, QStringView key, const AttributeValue& value);
    void rollback();

    /// Every change is in the file: `numbers` are those of `inserted`, 0 where nothing was to be inserted.
    void setSaved(const std::vector<qint64>& numbers);
    void setGone(ManagedRecord& record);

    /// The record if it is known here, else null.
    [[nodiscard]] Record known(std::size_t entity, qint64 number) const;
    /// The record, made with empty values if it was not known.
    [[nodiscard]] Record provide(std::size_t entity, qint64 number);

    // In the order of the first change. Look at each one's state: some have no changes any more.
    [[nodiscard]] const std::vector<Record>& inserted() const { return inserted_; }
    [[nodiscard]] const std::vector<Record>& changed() const { return changed_; }
    [[nodiscard]] bool hasChanges() const;

    /// Those whose state the overlay does not know.
    [[nodiscard]] const std::vector<Record>& awaitingOverlay() const { return awaitingOverlay_; }
    void setOverlaid();

    /// No more changes. What is pending is dropped.
    void end();
    [[nodiscard]] bool isEnded() const { return isEnded_; }

private:
    /// The saved records of one entity that somebody may hold.
    struct Registry {
        std::unordered_map<qint64, std::weak_ptr<ManagedRecord>> records;
        std::size_t sweepAt = 1000; ///< once there are so many, those that nobody holds are taken out
    };

    void add(const Record& record);
    void setChanged(const Record& record);
    void clearChanges();

    const std::vector<EntityDescription> entities_;
    const QString token_; ///< tells temporary identities of this graph from those of others
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
