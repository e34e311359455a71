// SPDX-License-Identifier: MIT
#pragma once

#include <cmark-gfm-extension_api.h>

namespace quor::markdown {

/// The turn of one parser to parse inline elements. cmark-gfm enters the special characters of the extensions
/// of a parser into global tables for that time, so the parsers of all threads take turns. A parser that
/// takes long hands its turn to the others again and again, so that a hostile text does not hold them up.
///
/// For one thread.
class InlineTurn {
public:
    /// Waits for the turn of `parser`, which must exist until `end`.
    void begin(cmark_parser* parser);
    /// Ends the turn. Has no effect before `begin`.
    void end();

    /// Lets the parsers that are waiting go first. Has no effect before `begin` and after `end`.
    void offer();

private:
    cmark_parser* parser_ = nullptr; // while this is its turn
};

} // namespace quor::markdown
