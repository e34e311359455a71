// SPDX-License-Identifier: MIT
#pragma once

namespace quor::toolkit {

/// What an attribute of an entity holds. Each attribute may also be empty. In the file a boolean is 0 or
/// 1, a date seconds since 1970 as a real, text UTF-8; the declared type is kept in code alone, so that a
/// type that changes loses nothing (see `converted`).
enum class AttributeType {
    boolean,
    integer, ///< 64 bits, signed
    real, ///< infinite as well, but never NaN
    text,
    data,
    date,
};

} // namespace quor::toolkit
