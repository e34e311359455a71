// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace quor::toolkit {
class AppearanceMode;
}

namespace quor::formkit {

/// Gives `view` the application's palette if `mode` is dark and the view would be light, because its window
/// has a palette of its own; else takes the view's own palette away again.
void applyAppearance(QWidget& view, const toolkit::AppearanceMode& mode);

} // namespace quor::formkit
