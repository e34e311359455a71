// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeType.h"

#include <QString>

namespace quor::toolkit {

/// One attribute of an entity. The name can contain any character except NUL, and must not begin with "$". An
/// index makes predicates on the attribute faster and inserts slower; "uniqueID" always has one.
struct AttributeDescription {
    QString name;
    AttributeType type = AttributeType::text;
    bool isIndexed = false;
};

} // namespace quor::toolkit
