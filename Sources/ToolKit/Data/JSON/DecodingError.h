// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// Why bytes could not be read as the wanted type: the first failure, in the order in which the type
/// names its fields.
struct DecodingError {
    enum class Kind {
        dataCorrupted, ///< not JSON, nested too deeply, or a number that the type cannot hold
        keyNotFound, ///< a required member is missing
        typeMismatch, ///< a value of another type, null included
    };

    Kind kind = Kind::dataCorrupted;
    QString description;
    QString codingPath; ///< where, as in `[3].entry._0.color`; empty for the whole text

    /// `description`, and where it was, for a log.
    [[nodiscard]] QString text() const;

    /// Fills in the failure. Returns false, for a decoder to hand on.
    bool set(Kind newKind, const QString& newDescription);

    /// Puts the member's name, or the element's index, before the path. Returns false.
    bool within(const QString& member);
    bool within(qsizetype index);
};

} // namespace quor::toolkit
