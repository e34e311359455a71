// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/ScreenFit.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace quor::formkit {

QSize sizeOnScreen(QSize wanted, const QWidget& view, int margin)
{
    const QSize available
        = view.screen()->availableGeometry().marginsRemoved({margin, margin, margin, margin}).size();
    const int scrollBar = view.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &view);
    if (wanted.height() > available.height())
        wanted.rwidth() += scrollBar;
    if (wanted.width() > available.width())
        wanted.rheight() += scrollBar;
    return wanted.boundedTo(available);
}

} // namespace quor::formkit
