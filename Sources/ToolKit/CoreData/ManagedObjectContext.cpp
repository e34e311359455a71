// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/ManagedObjectContext.h"

#include "ToolKit/CoreData/Fetching/FetchQuery.h"
#include "ToolKit/CoreData/Fetching/PendingOverlay.h"
#include "ToolKit/CoreData/Store/SaveTransaction.h"
#include "ToolKit/CoreData/Store/StoreFile.h"
#include "ToolKit/Logging/Logger.h"

#include <algorithm>

namespace quor::toolkit {

using RecordState = ManagedRecord::State;

/// The open store. Everything that can change must be used only in blocks on the queue of the graph.
struct ManagedObjectContext::State {
    explicit State(std::vector<EntityDescription> entities)
        : graph(std::make_shared<ObjectGraph>(std::move(entities)))
    {
    }

    [[nodiscard]] std::optional<std::size_t> entityIndex(QStringView name) const
    {
        return openError ? std::nullopt : graph->entityIndex(name);
    }

    /// Calls `question` with a query over the entity. Returns its failure, or why there can be no query.
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

    /// The records of the list for which `condition` is true.
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

/// Stores the failure in `error`, if both exist. Returns whether there is a failure.
bool report(const SQLiteDatabase::Failure& failure, StoreError* error)
{
    if (failure && error)
        *error = *failure;
    return failure.has_value();
}

/// Sorts by the URIs of the identities, so that the order is the same whenever the same file is read.
void sortByIdentity(std::vector<ManagedObject>& objects)
{
    std::vector<std::pair<QString, ManagedObject>> keyed;
    keyed.reserve(objects.size());
    for (const auto& object : objects)
        keyed.emplace_back(object.objectID().URIRepresentation(), object);
    std::sort(keyed.begin(), keyed.end(),
        [](const auto& one, const auto& other) { return one.first < other.first; });
    std::transform(keyed.begin(), keyed.end(), objects.begin(), [](const auto& pair) { return pair.second; });
}

/// Whether records of the entity can be found by their identifiers. Otherwise each call of `fetchSingleton`
/// would insert another record.
bool hasIdentifiers(const EntityDescription& entity)
{
    const auto index = entity.index(u"uniqueID");
    return index && entity.attributes()[*index].type == AttributeType::text;
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
    // The block owns the graph and with it the queue, because the block can end the context.
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
        [](const ManagedRecord& record) { return record.state == RecordState::deleting; });
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
    // The URI is one of this store if the identity made from its parts has the same URI.
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
        const bool isHere = record && record->state != RecordState::deleting
            && record->state != RecordState::deleted && state_->graph->objectID(*record) == objectID;
        return !report(failure, error) && isHere ? std::optional<ManagedObject>(record) : std::nullopt;
    });
}

std::optional<ManagedObject> ManagedObjectContext::fetchObject(
    const QString& entityName, const QString& uniqueIdentifier) const
{
    return firstOf(fetchObjects(entityName, Predicate(u"(uniqueID == %@)", {uniqueIdentifier}), 1));
}

std::vector<ManagedObject> ManagedObjectContext::fetchObjects(
    const QString& entityName, const std::optional<Predicate>& predicate, std::optional<int> limit) const
{
    return fetch(FetchRequest{entityName, predicate, {}, limit});
}

ManagedObject ManagedObjectContext::fetchSingleton(
    const QString& entityName, const QString& className, const std::optional<QString>& uniqueIdentifier)
{
    const EntityDescription* const description = entity(entityName);
    if (!description
        || (uniqueIdentifier && !(isStorable(*uniqueIdentifier) && hasIdentifiers(*description))))
        return {};
    std::optional<Predicate> predicate;
    if (uniqueIdentifier)
        predicate.emplace(u"(uniqueID == %@)", std::vector<PredicateArgument>{*uniqueIdentifier});
    auto objects = fetchObjects(entityName, predicate);
    if (objects.empty()) {
        ManagedObject object = insertObject(entityName);
        if (uniqueIdentifier)
            object.setValue(*uniqueIdentifier, u"uniqueID");
        return object;
    }
    if (objects.size() > 1) {
        sortByIdentity(objects);
        const QString identifier = uniqueIdentifier.value_or(QStringLiteral("nil"));
        Logger::log(QStringLiteral("found duplicates for: %1, %2 deleting").arg(className, identifier), true);
        std::for_each(
            objects.begin(), objects.end() - 1, [this](const auto& object) { deleteObject(object); });
    }
    return objects.back();
}

} // namespace quor::toolkit
