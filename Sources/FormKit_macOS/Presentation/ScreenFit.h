// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QWidget;

namespace quor::formkit {

/// Returns `wanted`, the size of a form's view, limited to the screen of `view` less `margin` on each side,
/// in device-independent pixels. Adds the room for the scroll bar that a limited form gets.
[[nodiscard]] QSize sizeOnScreen(QSize wanted, const QWidget& view, int margin);

} // namespace quor::formkit
