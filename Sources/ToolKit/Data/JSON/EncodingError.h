// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// Why a value has no JSON form: a number that is not finite, or nesting deeper than can be read back.
struct EncodingError {
    QString description;
};

} // namespace quor::toolkit
