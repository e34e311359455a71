// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/ManagedObjectContext.h"
#include "ToolKit/Logging/Logger.h"

#include <algorithm>

namespace quor::toolkit {

namespace {

/// In the order of the texts of their identities, which is the same on every run of the same data.
void sortByIdentity(std::vector<ManagedObject>& objects)
{
    std::vector<std::pair<QString, ManagedObject>> keyed;
    keyed.reserve(objects.size());
    for (const auto& object : objects)
        keyed.emplace_back(object.objectID().URIRepresentation(), object);
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(keyed.begin(), keyed.end(), objects.begin(), [](const auto& pair) { return pair.second; });
}

/// Else no record could be found again by its identifier, and each call would make another one.
bool hasIdentifiers(const EntityDescription& entity)
{
    const auto index = entity.index(u"uniqueID");
    return index && entity.attributes()[*index].type == AttributeType::text;
}

} // namespace

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
