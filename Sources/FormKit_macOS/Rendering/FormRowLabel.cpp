// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Rendering/FormRowLabel.h"

#include "FormKit_macOS/Controls/ElidedText.h"

#include <QMouseEvent>

namespace quor::formkit {

FormRowLabel::~FormRowLabel()
{
    nameInput({});
}

void FormRowLabel::show(const QString& line, QWidget* input, Qt::Alignment alignment)
{
    setAlignment(alignment | Qt::AlignVCenter);
    const QString name = singleLine(line);
    if (name != text())
        setLine(line);
    if (input != input_) {
        nameInput({});
        input_ = input;
    }
    nameInput(name);
    // A label with a buddy would take a letter after '&' as a shortcut.
    const bool isLiteral = name.contains(u'&');
    setAccessibleName(isLiteral ? name : QString());
    if (QWidget* const shortcutFree = isLiteral ? nullptr : input; buddy() != shortcutFree)
        setBuddy(shortcutFree);
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
