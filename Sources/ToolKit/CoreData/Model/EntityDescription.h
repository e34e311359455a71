// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeDescription.h"
#include "ToolKit/CoreData/Objects/RecordClass.h"

#include <QString>
#include <QStringView>

#include <map>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// The attributes of all records of one class. An application declares it once for each record class:
///
///     const auto tasks = EntityDescription::of<Task>({
///         {u"uniqueID"_s, AttributeType::text},
///         {u"name"_s, AttributeType::text},
///     });
///
/// An entity is a table in the file, an attribute is a column. When a context opens the file, it adds the
/// columns that are missing. Columns that the code no longer declares stay in the file. Two names that differ
/// only in the case of ASCII letters are the same for a file. A plain value; any thread.
class EntityDescription final {
public:
    EntityDescription(QString name, std::vector<AttributeDescription> attributes);

    /// An entity with the plain name of the record class.
    template <RecordClass Record>
    [[nodiscard]] static EntityDescription of(std::vector<AttributeDescription> attributes)
    {
        return {plainClassName<Record>(), std::move(attributes)};
    }

    [[nodiscard]] const QString& name() const { return name_; }
    [[nodiscard]] const std::vector<AttributeDescription>& attributes() const { return attributes_; }

    /// The index of the attribute in `attributes`. Returns `nullopt` for an unknown name. Case-sensitive.
    [[nodiscard]] std::optional<std::size_t> index(QStringView key) const;

private:
    QString name_;
    std::vector<AttributeDescription> attributes_;
    std::map<QString, std::size_t, std::less<>> indexes_;
};

} // namespace quor::toolkit
