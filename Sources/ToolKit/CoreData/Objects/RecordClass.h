// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Objects/ManagedObject.h"
#include "ToolKit/Deferred/TargetActionWrapper.h"

#include <QString>

#include <concepts>
#include <typeinfo>
#include <utility>

namespace quor::toolkit {

/// A record class: it derives from `ManagedObject` and adds accessors, but no members, because the data of a
/// record are its attributes. Its plain name is the name of its entity.
template <class T>
concept RecordClass = std::derived_from<T, ManagedObject> && std::default_initializable<T> && sizeof(T)
    == sizeof(ManagedObject);

/// The name with namespaces, as in "app::Task".
template <RecordClass Record>
[[nodiscard]] QString qualifiedClassName()
{
    return typeDescription(typeid(Record));
}

/// The name without namespaces, as in "Task".
template <RecordClass Record>
[[nodiscard]] QString plainClassName()
{
    const QString name = qualifiedClassName<Record>();
    return name.sliced(name.lastIndexOf(u':') + 1);
}

/// A handle of class `Record` to the same record. Does not check that the record is of the class's entity.
template <RecordClass Record>
[[nodiscard]] Record recordOf(const ManagedObject& object)
{
    Record record;
    static_cast<ManagedObject&>(record) = object;
    return record;
}

} // namespace quor::toolkit
