// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

/// What may be asked of the parser. Without any of them quotes, dashes and dots become typographic ones, and
/// elements know their places.
namespace quor::markdown {

enum class ParseOption : unsigned {
    parseBlockDirectives
    = 1, ///< kept for the bit alone: there is no parser of directives, and it does nothing
    disableSmartOptions = 4, ///< straight quotes and dashes stay
    disableSourcePosOptions = 16, ///< no element has a range
};

Q_DECLARE_FLAGS(ParseOptions, ParseOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(ParseOptions)

} // namespace quor::markdown
