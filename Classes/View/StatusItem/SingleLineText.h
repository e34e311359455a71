// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QString>

class QPainter;

namespace quor::helper {

/// Returns at most the first `longest` UTF-16 units of the text, without cutting a surrogate pair. Line
/// breaks and other control characters become blanks.
[[nodiscard]] QString singleLine(const QString& text, qsizetype longest);

/// Returns the point next to `point` that lies on a device pixel of the painter, so that letters drawn there
/// are sharp.
[[nodiscard]] QPointF alignedToDevicePixels(const QPainter& painter, QPointF point);

} // namespace quor::helper
