// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>

/// Colours in words, in the user's language. Main thread only.
namespace quor::formkit {

/// Returns the name of the nearest of some twenty everyday colours, such as "Orange" or "Blue, dark". Ignores
/// alpha. The name of an invalid colour says that there is none.
[[nodiscard]] QString colorName(const QColor& color);

/// Returns the name with the exact value, such as "Orange (#FFBB5C)".
[[nodiscard]] QString colorNameAndValue(const QColor& color);

} // namespace quor::formkit
