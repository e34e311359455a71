// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Controls/MenuScrollBar.h"

#include "Platform/Resources/Tinting.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

namespace quor::helper {

namespace {

constexpr int thickness = 10;
constexpr int margin = 2;

} // namespace

MenuScrollBar::MenuScrollBar(QWidget* parent)
    : QScrollBar(Qt::Vertical, parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent, false); // the menu's background shows through
}

QSize MenuScrollBar::sizeHint() const
{
    return {thickness, QScrollBar::sizeHint().height()};
}

void MenuScrollBar::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRectF slider // where the style lets the user grab it
        = style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    const bool isBusy = isSliderDown() || underMouse();
    const QColor ink = platform::withAlpha(palette().color(QPalette::WindowText), isBusy ? 0.55 : 0.3);
    const QRectF handle = slider.adjusted(margin, margin, -margin, -margin);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawRoundedRect(handle, handle.width() / 2, handle.width() / 2);
}

} // namespace quor::helper
