// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Objects/ObjectGraph.h"

#include <QUuid>

#include <algorithm>
#include <utility>

namespace quor::toolkit {

using State = ManagedRecord::State;

ObjectGraph::ObjectGraph(std::vector<EntityDescription> entities)
    : entities_(std::move(entities))
    , token_(QUuid::createUuid().toString(QUuid::Id128))
    , registries_(entities_.size())
{
}

std::optional<std::size_t> ObjectGraph::entityIndex(QStringView name) const
{
    const auto found = std::find_if(
        entities_.begin(), entities_.end(), [name](const auto& entity) { return entity.name() == name; });
    if (found == entities_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - entities_.begin());
}

ManagedObjectID ObjectGraph::objectID(const ManagedRecord& record) const
{
    const bool isTemporary = record.number >= firstTemporary;
    return {isTemporary ? token_ : store_, entity(record).name(), record.number, isTemporary};
}

ObjectGraph::Record ObjectGraph::insert(std::size_t entity)
{
    auto record = std::make_shared<ManagedRecord>();
    record->graph = shared_from_this();
    record->entity = entity;
    record->number = firstInserted_ + static_cast<qint64>(inserted_.size());
    record->state = State::inserted;
    record->values.resize(entities_[entity].attributes().size());
    inserted_.push_back(record);
    setChanged(record);
    return record;
}

bool ObjectGraph::remove(const Record& record)
{
    if (isEnded_ || (record->state != State::inserted && record->state != State::saved))
        return false;
    record->state = record->state == State::inserted ? State::deleted : State::deleting;
    setChanged(record);
    return true;
}

bool ObjectGraph::setValue(const Record& record, QStringView key, const AttributeValue& value)
{
    const auto index = entity(*record).index(key);
    if (!index || isEnded_ || (record->state != State::inserted && record->state != State::saved))
        return false;
    const auto fitting = converted(value, entity(*record).attributes()[*index].type);
    if (!fitting)
        return false;
    AttributeValue& held = record->values[*index];
    if (held == *fitting)
        return true;
    if (record->state == State::saved) {
        auto& originals = record->originals;
        const auto original = std::find_if(
            originals.begin(), originals.end(), [index](const auto& pair) { return pair.first == *index; });
        if (original == originals.end())
            originals.emplace_back(*index, std::move(held));
        else if (original->second == *fitting)
            originals.erase(original);
    }
    held = *fitting;
    setChanged(record);
    return true;
}

void ObjectGraph::rollback()
{
    for (const Record& record : inserted_)
        record->state = State::deleted;
    for (const Record& record : changed_) {
        for (auto& [index, value] : record->originals)
            record->values[index] = std::move(value);
        record->originals.clear();
        if (record->state == State::deleting)
            record->state = State::saved;
    }
    clearChanges();
}

void ObjectGraph::setSaved(const std::vector<qint64>& numbers)
{
    setOverlaid();
    for (std::size_t i = 0; i < inserted_.size(); ++i) {
        const Record& record = inserted_[i];
        if (record->state != State::inserted)
            continue;
        record->number = numbers[i];
        record->state = State::saved;
        if (record.use_count() > 1) // a record without handles is made again by the next fetch
            add(record);
    }
    for (const Record& record : changed_) {
        record->originals.clear();
        if (record->state == State::deleting)
            setDeleted(*record);
    }
    clearChanges();
}

void ObjectGraph::setDeleted(ManagedRecord& record)
{
    record.state = State::deleted;
    registries_[record.entity].records.erase(record.number);
}

ObjectGraph::Record ObjectGraph::known(std::size_t entity, qint64 number) const
{
    if (number >= firstInserted_) {
        const auto index = static_cast<std::size_t>(number - firstInserted_);
        const bool isHere = index < inserted_.size() && inserted_[index]->entity == entity;
        return isHere ? inserted_[index] : nullptr;
    }
    const auto& records = registries_[entity].records;
    const auto found = records.find(number);
    return found == records.end() ? nullptr : found->second.lock();
}

ObjectGraph::Record ObjectGraph::provide(std::size_t entity, qint64 number)
{
    if (auto record = known(entity, number))
        return record;
    auto record = std::make_shared<ManagedRecord>();
    record->graph = shared_from_this();
    record->entity = entity;
    record->number = number;
    record->state = State::saved;
    record->values.resize(entities_[entity].attributes().size());
    add(record);
    return record;
}

bool ObjectGraph::hasChanges() const
{
    const auto isDirty = [](const Record& record) { return record->isDirty(); };
    return std::any_of(inserted_.begin(), inserted_.end(), isDirty)
        || std::any_of(changed_.begin(), changed_.end(), isDirty);
}

void ObjectGraph::setOverlaid()
{
    for (const Record& record : awaitingOverlay_)
        record->awaitsOverlay = false;
    awaitingOverlay_.clear();
}

void ObjectGraph::end()
{
    isEnded_ = true;
    clearChanges();
    registries_.clear();
}

void ObjectGraph::add(const Record& record)
{
    Registry& registry = registries_[record->entity];
    if (registry.records.size() >= registry.sweepAt) {
        std::erase_if(registry.records, [](const auto& item) { return item.second.expired(); });
        registry.sweepAt = std::max<std::size_t>(1000, 2 * registry.records.size());
    }
    registry.records[record->number] = record;
}

void ObjectGraph::setChanged(const Record& record)
{
    if (!record->isListed && record->number < firstTemporary) {
        record->isListed = true;
        changed_.push_back(record);
    }
    if (!record->awaitsOverlay) {
        record->awaitsOverlay = true;
        awaitingOverlay_.push_back(record);
    }
}

void ObjectGraph::clearChanges()
{
    setOverlaid();
    for (const Record& record : changed_)
        record->isListed = false;
    changed_.clear();
    firstInserted_ += static_cast<qint64>(inserted_.size());
    inserted_.clear();
}

} // namespace quor::toolkit
