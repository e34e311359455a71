// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// The reason why a store could not be opened, read or written.
struct StoreError {
    enum class Kind {
        cannotOpen, ///< the folder is missing, permission is denied, it is not a regular file, or it was
                    ///< removed
        notAStore, ///< another kind of file, or made by a later version of this library
        invalidModel, ///< the entities cannot be tables: a name is empty, reserved or used twice
        invalidRequest, ///< an unknown entity or attribute, a malformed predicate
        locked, ///< another context or process was writing for longer than the busy timeout
        readOnly,
        full, ///< the disk is full, or a limit on the size of files is reached
        corrupt,
        tooBig, ///< a value is larger than a gigabyte
        failed, ///< anything else; see `description`
    };

    Kind kind = Kind::failed;
    QString description; ///< in English, for a log or a developer
    int code = 0; ///< extended result code of SQLite; 0 if the error does not come from SQLite
};

} // namespace quor::toolkit
