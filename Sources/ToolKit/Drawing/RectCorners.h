// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

namespace quor::toolkit {

enum class RectCorner { topLeft = 1, bottomLeft = 2, topRight = 4, bottomRight = 8 };

/// A set of corners of a rectangle; `toInt()` returns its raw value.
Q_DECLARE_FLAGS(RectCorners, RectCorner)
Q_DECLARE_OPERATORS_FOR_FLAGS(RectCorners)

} // namespace quor::toolkit
