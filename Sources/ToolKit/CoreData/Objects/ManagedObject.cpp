// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Objects/ManagedObject.h"

#include "ToolKit/CoreData/Objects/ObjectGraph.h"

#include <algorithm>
#include <utility>

namespace quor::toolkit {

namespace {

using State = ManagedRecord::State;

/// Asks a question about an attached record on the queue of its graph. Returns `otherwise` for a plain
/// record.
template <class Result, class Question>
Result ask(const std::shared_ptr<ManagedRecord>& record, Result otherwise, Question question)
{
    if (!record->graph)
        return otherwise;
    return record->graph->queue().perform([&]() -> Result { return question(*record->graph, *record); });
}

auto plainValue(const ManagedRecord& record, QStringView key)
{
    return std::find_if(record.plainValues.begin(), record.plainValues.end(),
        [key](const auto& pair) { return pair.first == key; });
}

} // namespace

ManagedObject::ManagedObject()
    : record_(std::make_shared<ManagedRecord>())
{
}

ManagedObject::ManagedObject(std::shared_ptr<ManagedRecord> record)
    : record_(std::move(record))
{
}

AttributeValue ManagedObject::value(QStringView key) const
{
    if (!record_->graph) {
        const auto found = plainValue(*record_, key);
        return found == record_->plainValues.end() ? AttributeValue() : found->second;
    }
    const auto index = record_->graph->entity(*record_).index(key);
    if (!index)
        return {};
    return record_->graph->queue().perform([&] { return record_->values[*index]; });
}

bool ManagedObject::setValue(const AttributeValue& value, QStringView key)
{
    if (record_->graph)
        return record_->graph->queue().perform([&] { return record_->graph->setValue(record_, key, value); });
    const auto found = plainValue(*record_, key);
    if (found == record_->plainValues.end())
        record_->plainValues.emplace_back(key.toString(), value);
    else
        record_->plainValues[static_cast<std::size_t>(found - record_->plainValues.begin())].second = value;
    return true;
}

ManagedObjectID ManagedObject::objectID() const
{
    return ask(record_, ManagedObjectID(),
        [](const ObjectGraph& graph, const ManagedRecord& record) { return graph.objectID(record); });
}

QString ManagedObject::entityName() const
{
    return record_->graph ? record_->graph->entity(*record_).name() : QString();
}

bool ManagedObject::isAttached() const
{
    return ask(
        record_, false, [](const ObjectGraph& graph, const ManagedRecord&) { return !graph.isEnded(); });
}

bool ManagedObject::isInserted() const
{
    return ask(record_, false,
        [](const ObjectGraph&, const ManagedRecord& record) { return record.state == State::inserted; });
}

bool ManagedObject::isUpdated() const
{
    return ask(record_, false, [](const ObjectGraph&, const ManagedRecord& record) {
        return record.state == State::saved && record.isDirty();
    });
}

bool ManagedObject::isDeleted() const
{
    return ask(record_, false, [](const ObjectGraph&, const ManagedRecord& record) {
        return record.state == State::deleting || record.state == State::deleted;
    });
}

bool ManagedObject::hasChanges() const
{
    return ask(
        record_, false, [](const ObjectGraph&, const ManagedRecord& record) { return record.isDirty(); });
}

QStringList ManagedObject::changedKeys() const
{
    return ask(record_, QStringList(), [](const ObjectGraph& graph, const ManagedRecord& record) {
        QStringList keys;
        for (const auto& [index, original] : record.originals)
            keys += graph.entity(record).attributes()[index].name;
        return keys;
    });
}

} // namespace quor::toolkit
