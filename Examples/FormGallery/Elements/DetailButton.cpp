// SPDX-License-Identifier: MIT
#include "FormGallery/Elements/DetailButton.h"

#include <Platform/Lifetime/WhileAlive.h>

namespace quor::gallery {

DetailButton::DetailButton(Kind kind, const QString& symbol, const QString& toolTip)
{
    button_->setText(symbol);
    button_->setCheckable(kind == Kind::toggle);
    button_->setFocusPolicy(Qt::TabFocus);
    // Symbols differ in width, the inputs beside them should not.
    button_->setMinimumWidth(button_->sizeHint().height() * 4 / 3);
    setToolTip(toolTip);
    QObject::connect(
        button_.get(), &QToolButton::clicked, button_.get(), platform::whileAlive(*this, [this](bool) {
            hasChanges_ = hasChanges_ || button_->isCheckable();
            valueChanged_(*this);
        }));
}

void DetailButton::setEnabled(bool enabled)
{
    enabled_ = enabled;
    if (button_)
        button_->setEnabled(enabled);
}

void DetailButton::setToolTip(const QString& toolTip)
{
    toolTip_ = toolTip;
    if (!button_)
        return;
    button_->setToolTip(toolTip);
    button_->setAccessibleName(toolTip);
}

} // namespace quor::gallery
