// SPDX-License-Identifier: MIT
#pragma once

#include <Markdown/Markup.h>

/// The tree below an element, itself included, one line each: indented by its depth, what it is, what it
/// holds and where it stood, as in `Heading level: 2 @3:1-3:8`. Beyond some depth the indentation stays, and
/// the depth is told as a number, since a listing would otherwise grow with its square.
QByteArray listing(const quor::markdown::Markup& root);
