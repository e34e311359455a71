// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// One step of an order: by this attribute, empty values first. Numbers and dates sort by size, text by
/// code points, data by bytes; what is equal follows the next step, and at last the order of insertion.
struct SortDescriptor {
    QString key;
    bool isAscending = true;
};

} // namespace quor::toolkit
