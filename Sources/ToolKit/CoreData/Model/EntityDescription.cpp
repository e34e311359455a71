// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Model/EntityDescription.h"

#include <utility>

namespace quor::toolkit {

EntityDescription::EntityDescription(QString name, std::vector<AttributeDescription> attributes)
    : name_(std::move(name))
    , attributes_(std::move(attributes))
{
    for (std::size_t i = 0; i < attributes_.size(); ++i) {
        indexes_.emplace(attributes_[i].name, i);
        if (attributes_[i].name == QLatin1String("uniqueID"))
            attributes_[i].isIndexed = true;
    }
}

std::optional<std::size_t> EntityDescription::index(QStringView key) const
{
    const auto found = indexes_.find(key);
    return found == indexes_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace quor::toolkit
