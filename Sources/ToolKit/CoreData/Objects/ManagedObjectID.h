// SPDX-License-Identifier: MIT
#pragma once

#include <QHashFunctions>
#include <QString>

namespace quor::toolkit {

/// The identity of a record: of the store, the entity and the record in it. One that was not saved yet has
/// a temporary identity, which its context replaces at the save. A saved identity is never given to
/// another record, not even after the record was deleted. A value; any thread.
class ManagedObjectID final {
public:
    /// The identity of nothing.
    ManagedObjectID() = default;
    ManagedObjectID(QString store, QString entityName, qint64 number, bool isTemporary);

    /// `x-quor-store://<store>/<entity>/p<number>`, percent-encoded. A temporary one is
    /// `x-quor-store:///<entity>/t<context>-<number>`, which sorts before every saved one; of one context,
    /// in the order of insertion. Empty for the identity of nothing.
    [[nodiscard]] QString URIRepresentation() const;

    [[nodiscard]] const QString& store() const { return store_; } ///< the context of a temporary one
    [[nodiscard]] const QString& entityName() const { return entityName_; }
    [[nodiscard]] qint64 number() const { return number_; }
    [[nodiscard]] bool isTemporaryID() const { return isTemporary_; }

    friend bool operator==(const ManagedObjectID&, const ManagedObjectID&) = default;
    friend std::size_t qHash(const ManagedObjectID& id, std::size_t seed = 0)
    {
        return qHashMulti(seed, id.store_, id.entityName_, id.number_);
    }

private:
    QString store_;
    QString entityName_;
    qint64 number_ = 0;
    bool isTemporary_ = true;
};

} // namespace quor::toolkit
