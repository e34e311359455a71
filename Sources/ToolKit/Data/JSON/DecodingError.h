// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// The reason why bytes could not be decoded as a type: the first failure, in the order in which the type
/// lists its fields.
struct DecodingError {
    enum class Kind {
        dataCorrupted, ///< No valid JSON, nested too deeply, or a value that the type cannot hold.
        keyNotFound, ///< A required member is missing.
        typeMismatch, ///< A value of another type, or null.
    };

    Kind kind = Kind::dataCorrupted;
    QString description;
    QString codingPath; ///< Where it happened, as in `[3].entry._0.color`. Empty for the top value.

    /// Returns the description and the path, for a log.
    [[nodiscard]] QString text() const;

    /// Sets the failure. Returns false, so that a decoder can return its result.
    bool set(Kind newKind, const QString& newDescription);

    /// Puts the name of a member, or the index of an element, before the path. Returns false.
    bool within(const QString& member);
    bool within(qsizetype index);
};

} // namespace quor::toolkit
