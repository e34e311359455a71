// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormDualInput.h"

#include <utility>

namespace quor::formkit {

FormDualInput::FormDualInput(Construction construction, std::shared_ptr<FormElement> leftElement,
    std::shared_ptr<FormElement> rightElement)
    : FormBase(construction)
    , leftElement_(std::move(leftElement))
    , rightElement_(std::move(rightElement))
{
}

QWidget* FormDualInput::view() const
{
    QWidget* const left = leftElement_->view();
    QWidget* const right = rightElement_->view();
    // The view of an element can change.
    if (container_
        && ((left && left->parentWidget() != container_.get())
            || (right && right->parentWidget() != container_.get())))
        container_->setViews(left, right);
    return container_.get();
}

std::vector<QWidget*> FormDualInput::focusableViews() const
{
    auto views = leftElement_->focusableViews();
    const auto others = rightElement_->focusableViews();
    views.insert(views.end(), others.begin(), others.end());
    return views;
}

void FormDualInput::setHidden(bool hidden)
{
    FormBase::setHidden(hidden);
    leftElement_->setHidden(hidden);
    rightElement_->setHidden(hidden);
}

void FormDualInput::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    leftElement_->setEnabled(enabled);
    rightElement_->setEnabled(enabled);
}

bool FormDualInput::hasChanges() const
{
    return leftElement_->hasChanges() || rightElement_->hasChanges();
}

void FormDualInput::setHasChanges(bool hasChanges)
{
    leftElement_->setHasChanges(hasChanges);
    rightElement_->setHasChanges(hasChanges);
}

} // namespace quor::formkit
