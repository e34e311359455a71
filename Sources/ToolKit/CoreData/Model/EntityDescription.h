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

/// What the records of one kind hold. Declared in code, once for each record class:
///
///     const auto tasks = EntityDescription::of<Task>({
///         {u"uniqueID"_s, AttributeType::text},
///         {u"name"_s, AttributeType::text},
///     });
///
/// An entity is a table of the file, an attribute a column. An attribute that the file has not is added
/// to it when a context opens it; one that has gone from the code stays in the file, untouched. Names are
/// those of tables and columns, which do not tell ASCII capitals from small letters. A value; any thread.
class EntityDescription final {
public:
    EntityDescription(QString name, std::vector<AttributeDescription> attributes);

    /// Named by the plain name of the class.
    template <RecordClass Record>
    [[nodiscard]] static EntityDescription of(std::vector<AttributeDescription> attributes)
    {
        return {plainClassName<Record>(), std::move(attributes)};
    }

    [[nodiscard]] const QString& name() const { return name_; }
    [[nodiscard]] const std::vector<AttributeDescription>& attributes() const { return attributes_; }

    /// Where the attribute stands among `attributes`. None for an unknown name; capitals count.
    [[nodiscard]] std::optional<std::size_t> index(QStringView key) const;

private:
    QString name_;
    std::vector<AttributeDescription> attributes_;
    std::map<QString, std::size_t, std::less<>> indexes_;
};

} // namespace quor::toolkit
