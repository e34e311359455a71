// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// Why a store could not be opened, read or written. The text is in English, for a log or a developer.
struct StoreError {
    enum class Kind {
        cannotOpen, ///< no such folder, no permission, no regular file; or it has gone since
        notAStore, ///< a file of something else, or of a later version of this library
        invalidModel, ///< the entities in code cannot be tables: names twice, empty or reserved
        invalidRequest, ///< an unknown entity or attribute, a malformed predicate
        locked, ///< another context or process wrote for longer than the busy timeout
        readOnly,
        full, ///< no room on the disk, or a limit on the size of files
        corrupt,
        tooBig, ///< a value beyond a gigabyte
        failed, ///< anything else; `description` tells
    };

    Kind kind = Kind::failed;
    QString description;
    int code = 0; ///< the extended result code of SQLite's; 0 where it was not asked
};

} // namespace quor::toolkit
