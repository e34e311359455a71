// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// The reason why a value could not be encoded: a number that is not finite, say, or too deep nesting.
struct EncodingError {
    QString description;
};

} // namespace quor::toolkit
