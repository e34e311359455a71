// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The place of an element in the text it was parsed from. Lines count from 1, columns count bytes of UTF-8
/// from 1, and both ends belong to the range. cmark-gfm sometimes reports an end in column 0, which means the
/// end of the previous line.
namespace quor::markdown {

struct SourceLocation {
    qint32 line = 0;
    qint32 column = 0;

    friend bool operator==(const SourceLocation&, const SourceLocation&) = default;
};

struct SourceRange {
    SourceLocation start;
    SourceLocation end;

    friend bool operator==(const SourceRange&, const SourceRange&) = default;
};

} // namespace quor::markdown
