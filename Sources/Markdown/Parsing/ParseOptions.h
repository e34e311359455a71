// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

/// The options of the parser. By default quotes, dashes and dots become typographic ones, and elements know
/// their places in the text.
namespace quor::markdown {

enum class ParseOption : unsigned {
    parseBlockDirectives = 1, ///< has no effect: there is no parser of directives
    disableSmartOptions = 4, ///< keep straight quotes, dashes and dots
    disableSourcePosOptions = 16, ///< no element has a range
};

Q_DECLARE_FLAGS(ParseOptions, ParseOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(ParseOptions)

} // namespace quor::markdown
