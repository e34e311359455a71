// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/FlippedEffectView.h"

#include "Platform/Resources/Tinting.h"

#include <QPaintEvent>
#include <QPainter>

namespace quor::toolkit {

FlippedEffectView::FlippedEffectView(QWidget* parent)
    : QWidget(parent)
{
    setGeometry(0, 0, 0, 0);
}

void FlippedEffectView::paintEvent(QPaintEvent* event)
{
    constexpr double opacity = 0.85; // keeps text readable in front of any desktop
    QColor sidebar = palette().color(QPalette::Active, QPalette::Window);
    if (window()->testAttribute(Qt::WA_TranslucentBackground))
        sidebar = platform::withAlpha(sidebar, opacity);
    QPainter painter(this);
    painter.fillRect(event->rect(), sidebar);
}

} // namespace quor::toolkit
