// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Controls/MenuTextField.h"

#include <QPainter>

namespace quor::helper {

MenuTextField::MenuTextField(double alpha, QWidget* parent)
    : QLabel(parent)
    , alpha_(alpha)
{
    setTextFormat(Qt::PlainText);
}

void MenuTextField::setLine(const QString& text, const QFont& font)
{
    line_ = MenuLine(text, font, alpha_);
    setText(line_.text());
    updateGeometry();
    update();
}

void MenuTextField::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    line_.draw(painter, rect(), palette().color(foregroundRole()), layoutDirection());
}

} // namespace quor::helper
