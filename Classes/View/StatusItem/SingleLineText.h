// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QString>

class QPainter;

namespace quor::helper {

/// The first `longest` UTF-16 units of the text at most, never half a character of two units; line
/// breaks and other controls become blanks.
[[nodiscard]] QString singleLine(const QString& text, qsizetype longest);

/// The nearest point where letters do not blur between device pixels.
[[nodiscard]] QPointF alignedToDevicePixels(const QPainter& painter, QPointF point);

} // namespace quor::helper
