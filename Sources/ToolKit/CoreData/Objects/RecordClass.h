// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ManagedObject.h"
#include "ToolKit/Deferred/TargetActionWrapper.h"

#include <QString>

#include <concepts>
#include <typeinfo>
#include <utility>

namespace quor::toolkit {

/// A class of records: derives from `ManagedObject` and adds accessors, never data, since a record's data
/// are its attributes. Its plain name is the name of its entity.
template <class T>
concept RecordClass = std::derived_from<T, ManagedObject> && std::default_initializable<T> && sizeof(T)
    == sizeof(ManagedObject);

/// "app::Task", the name with namespaces.
template <RecordClass Record>
[[nodiscard]] QString qualifiedClassName()
{
    return typeDescription(typeid(Record));
}

/// "Task" of "app::Task".
template <RecordClass Record>
[[nodiscard]] QString plainClassName()
{
    const QString name = qualifiedClassName<Record>();
    return name.sliced(name.lastIndexOf(u':') + 1);
}

/// The object as one of this class; nothing checks that it is of the entity.
template <RecordClass Record>
[[nodiscard]] Record recordOf(const ManagedObject& object)
{
    Record record;
    static_cast<ManagedObject&>(record) = object;
    return record;
}

} // namespace quor::toolkit
