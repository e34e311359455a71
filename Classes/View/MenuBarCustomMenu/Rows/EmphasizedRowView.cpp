// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/EmphasizedRowView.h"

#include <QPainter>

namespace quor::helper {

EmphasizedRowView::EmphasizedRowView(QWidget* parent)
    : TableRowView(parent)
{
    setSideMargin(sideMargin);
}

void EmphasizedRowView::setEmphasized(bool /*emphasized*/) { }

void EmphasizedRowView::setSelectionHighlightStyle(platform::TableViewSelectionStyle /*style*/) { }

void EmphasizedRowView::drawSelection(QPainter& painter) const
{
    constexpr qreal cornerRadius = 5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
}

} // namespace quor::helper
