// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QColor;
class QPainter;

namespace quor::toolkit {

/// Draws the magnifying glass of search fields, which fills `frame`. Set the painter to antialiasing.
void drawSearchGlass(QPainter& painter, const QRectF& frame, const QColor& color);

} // namespace quor::toolkit
