// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

/// The options of the parser. Without options, straight quotes, hyphens and dots are replaced by typographic
/// quotes, dashes and ellipses, and `Markup::range` returns the places of the elements in the text.
namespace quor::markdown {

enum class ParseOption : unsigned {
    parseBlockDirectives = 1, ///< has no effect: there is no parser of directives
    disableSmartOptions = 4, ///< quotes, hyphens and dots stay unchanged
    disableSourcePosOptions = 16, ///< `Markup::range` returns `nullopt` for every element
};

Q_DECLARE_FLAGS(ParseOptions, ParseOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(ParseOptions)

} // namespace quor::markdown
