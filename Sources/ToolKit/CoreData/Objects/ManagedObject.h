// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeValue.h"
#include "ToolKit/CoreData/Objects/ManagedObjectID.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <concepts>
#include <memory>
#include <optional>
#include <type_traits>

namespace quor::toolkit {

struct ManagedRecord;

/// A handle to a record of a store. Copies refer to the same record, and so do the handles that two fetches
/// of a context return. Subclasses add typed accessors, but no members:
///
///     class Task : public ManagedObject {
///     public:
///         [[nodiscard]] QString name() const { return value<QString>(u"name").value_or(QString()); }
///         void setName(const QString& name) { setValue(name, u"name"); }
///     };
///
/// Changes reach the disk when the context is saved. A handle can outlive its context and its record: it then
/// returns the last values and refuses to set others.
///
/// Any thread: each operation waits for its turn on the context's queue. Put operations that belong together
/// into one `ManagedObjectContext::performBlockAndWait`.
class ManagedObject {
public:
    /// Makes a plain record. It belongs to no context, has a value for any key, and is never saved. Its
    /// handles must be used on one thread at a time.
    ManagedObject();
    explicit ManagedObject(std::shared_ptr<ManagedRecord> record); ///< for contexts
    // A handle cannot be moved from, because it always has a record.
    ManagedObject(const ManagedObject&) = default;
    ManagedObject& operator=(const ManagedObject&) = default;

    /// The value of an attribute. Also empty for an unknown key.
    [[nodiscard]] AttributeValue value(QStringView key) const;

    /// The value if it has this type, which is one of the types of `AttributeValue`; else `nullopt`.
    template <class T>
    [[nodiscard]] std::optional<T> value(QStringView key) const
    {
        const AttributeValue found = value(key);
        const T* const typed = std::get_if<T>(&found);
        return typed ? std::optional<T>(*typed) : std::nullopt;
    }

    /// Sets the value of an attribute; `AttributeValue()` empties it. Returns false, with no effect, if the
    /// key is unknown, the value does not convert to the type of the attribute (see `converted`), the record
    /// is deleted, or its context has ended.
    bool setValue(const AttributeValue& value, QStringView key);
    /// A literal without `u` would be stored as bytes.
    template <class Literal>
    requires std::same_as < std::decay_t<Literal>,
    const char* > bool setValue(Literal&& value, QStringView key) = delete;

    /// The null identity for a plain record.
    [[nodiscard]] ManagedObjectID objectID() const;
    [[nodiscard]] QString entityName() const; ///< empty for a plain record

    // The state of the record. For a plain record all of these return false.

    [[nodiscard]] bool isAttached() const; ///< whether its context still exists
    [[nodiscard]] bool isInserted() const; ///< whether it was inserted and is not saved yet
    [[nodiscard]] bool isUpdated() const; ///< whether it was saved and has changed attributes since then
    /// Whether it was deleted in this context, or was deleted by another one and a save has found that.
    [[nodiscard]] bool isDeleted() const;
    [[nodiscard]] bool hasChanges() const; ///< whether the next save writes a change of this record

    /// The names of the attributes that differ from the last saved values; empty for an inserted record.
    [[nodiscard]] QStringList changedKeys() const;

    [[nodiscard]] const std::shared_ptr<ManagedRecord>& record() const { return record_; } ///< for contexts

    friend bool operator==(const ManagedObject& one, const ManagedObject& other)
    {
        return one.record_ == other.record_;
    }

private:
    std::shared_ptr<ManagedRecord> record_;
};

} // namespace quor::toolkit
