// SPDX-License-Identifier: MIT
#pragma once

namespace quor::toolkit {

/// The type of an attribute's values. Every attribute can also be empty. The file stores a boolean as 0 or 1,
/// a date as seconds since 1970 (a real), text as UTF-8. It does not store the declared type, so changing the
/// type of an attribute in code loses no data; values that do not convert (see `converted`) are read as
/// empty.
enum class AttributeType {
    boolean,
    integer, ///< 64 bits, signed
    real, ///< can be infinite, but not NaN
    text,
    data,
    date,
};

} // namespace quor::toolkit
