// SPDX-License-Identifier: MIT
#pragma once

#include <QHashFunctions>
#include <QString>

namespace quor::toolkit {

/// The identity of a record: its store, its entity, and its number. A record that is not saved yet has a
/// temporary identity; saving replaces it. The identity of a saved record is never used for another record,
/// even after the record was deleted. A plain value; any thread.
class ManagedObjectID final {
public:
    /// The null identity, which no saved record has.
    ManagedObjectID() = default;
    ManagedObjectID(QString store, QString entityName, qint64 number, bool isTemporary);

    /// `x-quor-store://<store>/<entity>/p<number>`, percent-encoded. A temporary identity is
    /// `x-quor-store:///<entity>/t<context>-<number>`. Temporary URIs sort before all others; the temporary
    /// URIs of one context sort in the order of insertion. Empty for the null identity.
    [[nodiscard]] QString URIRepresentation() const;

    [[nodiscard]] const QString& entityName() const { return entityName_; }
    [[nodiscard]] qint64 number() const { return number_; }
    [[nodiscard]] bool isTemporaryID() const { return isTemporary_; }

    friend bool operator==(const ManagedObjectID&, const ManagedObjectID&) = default;
    friend std::size_t qHash(const ManagedObjectID& id, std::size_t seed = 0)
    {
        return qHashMulti(seed, id.store_, id.entityName_, id.number_);
    }

private:
    QString store_; ///< of a temporary identity, the context
    QString entityName_;
    qint64 number_ = 0;
    bool isTemporary_ = true;
};

} // namespace quor::toolkit
