// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Where an element stood in the text it was parsed from. Lines count from 1, columns count bytes of UTF-8
/// from 1, and both ends belong to the range. Now and then the parser tells an end in column 0: that is
/// behind the last byte of the line before.
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
