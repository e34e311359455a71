// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/DefaultButton.h"

#include "FormKit/FormElement.h"

#include <QApplication>
#include <QKeyEvent>

namespace quor::formkit {

DefaultButton::DefaultButton(QWidget& form)
    : QObject(&form)
    , form_(form)
{
    form.installEventFilter(this);
}

void DefaultButton::setButton(const std::shared_ptr<FormElement>& element, QPushButton* button)
{
    element_ = element;
    if (button_ && button_ != button)
        button_->setDefault(false);
    button_ = button;
    if (button && !button->isDefault())
        button->setDefault(true);
}

bool DefaultButton::eventFilter(QObject*, QEvent* event)
{
    // Keys that a view in the form does not use reach the form.
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isReturn = (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        && !(key.modifiers() & ~Qt::KeypadModifier);
    return isReturn && press(key);
}

bool DefaultButton::press(const QKeyEvent& event)
{
    auto* pressed = qobject_cast<QPushButton*>(QApplication::focusWidget());
    if (!pressed || !form_.isAncestorOf(pressed)) {
        const auto element = element_.lock();
        pressed = element && !element->isHidden() ? button_.data() : nullptr;
    }
    if (!pressed || !pressed->isEnabled())
        return false;
    if (event.isAutoRepeat())
        return true; // a key that is held down presses once
    const auto announce = willPress;
    announce(*pressed);
    pressed->click();
    return true;
}

} // namespace quor::formkit
