// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/ManagedObjectContext.h"

#include "ToolKit/CoreData/Fetching/FetchQuery.h"
#include "ToolKit/CoreData/Fetching/PendingOverlay.h"
#include "ToolKit/CoreData/Store/SaveTransaction.h"
#include "ToolKit/CoreData/Store/StoreFile.h"

namespace quor::toolkit {

using RecordState = ManagedRecord::State;

/// All of it belongs to blocks on the graph's queue, but for what never changes.
struct ManagedObjectContext::State {
    explicit State(std::vector<EntityDescription> entities)
        : graph(std::make_shared<ObjectGraph>(std::move(entities)))
    {
    }

    [[nodiscard]] std::optional<std::size_t> entityIndex(QStringView name) const
    {
        return openError ? std::nullopt : graph->entityIndex(name);
    }

    /// Asks a query over the entity of the request.
    template <class Question>
    SQLiteDatabase::Failure query(const QString& entityName, Question question)
    {
        if (openError)
            return openError;
        const auto entity = graph->entityIndex(entityName);
        if (!entity)
            return StoreError{
                StoreError::Kind::invalidRequest, QStringLiteral("no entity \"%1\"").arg(entityName), 0};
        if (auto failure = overlay.update(file.database(), *graph))
            return failure;
        FetchQuery query(file.database(), *graph, *entity, overlay.covers(*entity));
        return question(query);
    }

    template <class Condition>
    [[nodiscard]] std::vector<ManagedObject> pending(
        const std::vector<ObjectGraph::Record>& records, Condition condition) const
    {
        return graph->queue().perform([&] {
            std::vector<ManagedObject> found;
            for (const auto& record : records) {
                if (condition(*record))
                    found.emplace_back(record);
            }
            return found;
        });
    }

    const std::shared_ptr<ObjectGraph> graph;
    StoreFile file;
    PendingOverlay overlay;
    std::optional<StoreError> openError;
};

namespace {

bool report(const SQLiteDatabase::Failure& failure, StoreError* error)
{
    if (failure && error)
        *error = *failure;
    return failure.has_value();
}

} // namespace

ManagedObjectContext::ManagedObjectContext(
    const QString& path, std::vector<EntityDescription> entities, std::chrono::milliseconds busyTimeout)
    : state_(std::make_unique<State>(std::move(entities)))
{
    state_->openError = state_->file.open(path, state_->graph->entities(), busyTimeout);
    state_->graph->setStore(state_->file.identifier());
}

ManagedObjectContext::~ManagedObjectContext()
{
    perform([this] { state_->graph->end(); });
}

const std::optional<StoreError>& ManagedObjectContext::openError() const
{
    return state_->openError;
}

const EntityDescription* ManagedObjectContext::entity(QStringView name) const
{
    const auto index = state_->entityIndex(name);
    return index ? &state_->graph->entities()[*index] : nullptr;
}

void ManagedObjectContext::perform(const std::function<void()>& block) const
{
    state_->graph->queue().perform(block);
}

void ManagedObjectContext::performBlock(std::function<void()> block)
{
    // The queue outlasts its blocks, even one that ends the context.
    state_->graph->queue().performLater([graph = state_->graph, block = std::move(block)] {
        if (block)
            block();
    });
}

ManagedObject ManagedObjectContext::insertObject(QStringView entityName)
{
    const auto entity = state_->entityIndex(entityName);
    if (!entity)
        return {};
    return performBlockAndWait([&] { return ManagedObject(state_->graph->insert(*entity)); });
}

bool ManagedObjectContext::deleteObject(const ManagedObject& object)
{
    if (object.record()->graph != state_->graph)
        return false;
    return performBlockAndWait([&] { return state_->graph->remove(object.record()); });
}

bool ManagedObjectContext::hasChanges() const
{
    return state_->graph->queue().perform([&] { return state_->graph->hasChanges(); });
}

std::vector<ManagedObject> ManagedObjectContext::insertedObjects() const
{
    return state_->pending(state_->graph->inserted(),
        [](const ManagedRecord& record) { return record.state == RecordState::inserted; });
}

std::vector<ManagedObject> ManagedObjectContext::updatedObjects() const
{
    return state_->pending(state_->graph->changed(),
        [](const ManagedRecord& record) { return record.state == RecordState::saved && record.isDirty(); });
}

std::vector<ManagedObject> ManagedObjectContext::deletedObjects() const
{
    return state_->pending(state_->graph->changed(),
        [](const ManagedRecord& record) { return record.state == RecordState::deleted; });
}

SaveOutcome ManagedObjectContext::save()
{
    return performBlockAndWait([&]() -> SaveOutcome {
        if (state_->openError)
            return {.error = state_->openError};
        SaveOutcome outcome = SaveTransaction(state_->file.database(), *state_->graph).run();
        if (outcome)
            state_->overlay.reset();
        return outcome;
    });
}

void ManagedObjectContext::rollback()
{
    performBlockAndWait([&] {
        state_->graph->rollback();
        state_->overlay.reset();
    });
}

std::optional<std::vector<ManagedObject>> ManagedObjectContext::execute(
    const FetchRequest& request, StoreError* error) const
{
    return state_->graph->queue().perform([&]() -> std::optional<std::vector<ManagedObject>> {
        std::vector<ObjectGraph::Record> found;
        const auto failure = state_->query(
            request.entityName, [&](FetchQuery& query) { return query.fetch(request, found); });
        if (report(failure, error))
            return std::nullopt;
        return std::vector<ManagedObject>(found.begin(), found.end());
    });
}

std::optional<qint64> ManagedObjectContext::count(const FetchRequest& request, StoreError* error) const
{
    return state_->graph->queue().perform([&]() -> std::optional<qint64> {
        qint64 count = 0;
        const auto failure = state_->query(
            request.entityName, [&](FetchQuery& query) { return query.count(request, count); });
        if (report(failure, error))
            return std::nullopt;
        return count;
    });
}

std::optional<ManagedObjectID> ManagedObjectContext::objectID(QStringView uri) const
{
    const auto digits = uri.lastIndexOf(u'/') + 2;
    bool isNumber = false;
    const qint64 number = uri.sliced(std::min(digits, uri.size())).toLongLong(&isNumber);
    if (!isNumber || state_->openError)
        return std::nullopt;
    // One that reads back the same is one of ours.
    for (const auto& entity : state_->graph->entities()) {
        ManagedObjectID objectID(state_->file.identifier(), entity.name(), number, false);
        if (objectID.URIRepresentation() == uri)
            return objectID;
    }
    return std::nullopt;
}

std::optional<ManagedObject> ManagedObjectContext::existingObject(
    const ManagedObjectID& objectID, StoreError* error) const
{
    return state_->graph->queue().perform([&]() -> std::optional<ManagedObject> {
        ObjectGraph::Record record;
        const auto failure = state_->query(objectID.entityName(), [&](FetchQuery& query) {
            record
                = state_->graph->known(*state_->graph->entityIndex(objectID.entityName()), objectID.number());
            if ((record && record->isDirty()) || objectID.isTemporaryID())
                return SQLiteDatabase::Failure();
            record = nullptr;
            return query.load(objectID.number(), record);
        });
        const bool isHere = record && record->state != RecordState::deleted
            && record->state != RecordState::gone && state_->graph->objectID(*record) == objectID;
        return !report(failure, error) && isHere ? std::optional<ManagedObject>(record) : std::nullopt;
    });
}

} // namespace quor::toolkit
