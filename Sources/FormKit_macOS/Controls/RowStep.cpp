// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/RowStep.h"

#include <algorithm>

namespace quor::formkit {

std::optional<int> stepInRow(int key, int current, int count, Qt::LayoutDirection direction)
{
    const int last = std::max(count - 1, 0);
    const int right = direction == Qt::RightToLeft ? -1 : 1;
    switch (key) {
    case Qt::Key_Left:
        return std::clamp(current - right, 0, last);
    case Qt::Key_Right:
        return std::clamp(current + right, 0, last);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return std::nullopt;
    }
}

} // namespace quor::formkit
