// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// One step of a sort order: it sorts by the values of an attribute. When ascending, empty values come first.
/// Numbers and dates are compared by size, text by code points, data by bytes. Records with equal values are
/// ordered by the next step, and after the last step by insertion.
struct SortDescriptor {
    QString key; ///< name of the attribute
    bool isAscending = true;
};

} // namespace quor::toolkit
