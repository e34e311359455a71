// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeType.h"

#include <QString>

namespace quor::toolkit {

/// One attribute of an entity. The name may hold any characters but NUL, and does not begin with "$".
/// An index makes predicates on the attribute fast and inserts slower; "uniqueID" has one always.
struct AttributeDescription {
    QString name;
    AttributeType type = AttributeType::text;
    bool isIndexed = false;
};

} // namespace quor::toolkit
