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

/// A record of a store: a handle, whose copies mean the same record. A context has each record once, so two
/// fetches of it give equal handles. Subclasses add typed accessors and no data:
///
///     class Task : public ManagedObject {
///     public:
///         [[nodiscard]] QString name() const { return value<QString>(u"name").value_or(QString()); }
///         void setName(const QString& name) { setValue(name, u"name"); }
///     };
///
/// Nothing reaches the disk before the context's save. Each operation may be called on any thread and
/// waits for its turn on the context's queue; what belongs together goes into one `performBlockAndWait`.
/// A handle may outlive its context, or its record: the last values stay readable, and no more can be set.
class ManagedObject {
public:
    /// A plain record, attached to no context: holds what it is given under any key, and is never saved.
    /// The handles of such a record are for one thread at a time.
    ManagedObject();
    explicit ManagedObject(std::shared_ptr<ManagedRecord> record); ///< for contexts
    // No moves: a handle always has its record.
    ManagedObject(const ManagedObject&) = default;
    ManagedObject& operator=(const ManagedObject&) = default;

    /// Empty for an unknown key too.
    [[nodiscard]] AttributeValue value(QStringView key) const;

    /// The value where it is one of this type of `AttributeValue`.
    template <class T>
    [[nodiscard]] std::optional<T> value(QStringView key) const
    {
        const AttributeValue found = value(key);
        const T* const typed = std::get_if<T>(&found);
        return typed ? std::optional<T>(*typed) : std::nullopt;
    }

    /// `AttributeValue()` empties the attribute. False, with no effect, for an unknown key, a value that does
    /// not convert to the attribute's type (see `converted`), and a record that is deleted or whose context
    /// has ended.
    bool setValue(const AttributeValue& value, QStringView key);
    /// A literal without u would be taken for bytes.
    template <class Literal>
    requires std::same_as < std::decay_t<Literal>,
    const char* > bool setValue(Literal&& value, QStringView key) = delete;

    /// That of nothing for a plain record.
    [[nodiscard]] ManagedObjectID objectID() const;
    [[nodiscard]] QString entityName() const; ///< empty for a plain record

    [[nodiscard]] bool isAttached() const; ///< to a context, which is still there
    [[nodiscard]] bool isInserted() const; ///< and not saved yet
    [[nodiscard]] bool isUpdated() const; ///< was saved, and has changed attributes
    [[nodiscard]] bool isDeleted() const; ///< here, saved or not, or elsewhere as a save found out
    [[nodiscard]] bool hasChanges() const; ///< anything that the next save would write

    /// The attributes that differ from what was loaded or saved; none for an inserted record.
    [[nodiscard]] QStringList changedKeys() const;

    [[nodiscard]] const std::shared_ptr<ManagedRecord>& record() const { return record_; } ///< for contexts

    friend bool operator==(const ManagedObject& a, const ManagedObject& b) { return a.record_ == b.record_; }

private:
    std::shared_ptr<ManagedRecord> record_;
};

} // namespace quor::toolkit
