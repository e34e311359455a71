// SPDX-License-Identifier: MIT
#pragma once

#include <Markdown/Markup.h>

/// Lists an element and its descendants, one line each: the kind, the contents and the place in the text, as
/// in `Heading level: 2 @3:1-3:8`, indented by the depth. Beyond a depth of 40 the line has the depth as a
/// number instead, because the listing of a deep tree would otherwise grow with the square of the depth.
QByteArray listing(const quor::markdown::Markup& root);
