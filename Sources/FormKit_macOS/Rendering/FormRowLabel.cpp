// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Rendering/FormRowLabel.h"

#include "FormKit/FormElement.h"
#include "FormKit_macOS/Controls/ElidedText.h"

#include <QMouseEvent>

namespace quor::formkit {

FormRowLabel::~FormRowLabel()
{
    nameInput({});
}

void FormRowLabel::setRow(QWidget* input, const std::shared_ptr<const FormElement>& element)
{
    if (input != input_) {
        nameInput({});
        if (input_)
            input_->removeEventFilter(this);
        input_ = input;
        if (input_)
            input_->installEventFilter(this);
    }
    element_ = element;
    updateEnabled();
    const QString name = text();
    nameInput(name);
    // A label with a buddy would take a letter after '&' as a shortcut.
    const bool isLiteral = name.contains(u'&');
    setAccessibleName(isLiteral ? name : QString());
    if (QWidget* const relation = isLiteral ? nullptr : input; buddy() != relation)
        setBuddy(relation);
}

bool FormRowLabel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == input_ && event->type() == QEvent::EnabledChange)
        updateEnabled();
    return ElidedLabel::eventFilter(watched, event);
}

void FormRowLabel::updateEnabled()
{
    const auto element = element_.lock();
    setEnabled(!element || element->enabled());
}

void FormRowLabel::nameInput(const QString& name)
{
    if (input_ && name != givenName_ && input_->accessibleName() == givenName_)
        input_->setAccessibleName(name);
    givenName_ = name;
}

void FormRowLabel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && input_ && input_->isEnabled())
        input_->setFocus(Qt::MouseFocusReason);
    else
        ElidedLabel::mousePressEvent(event);
}

} // namespace quor::formkit
