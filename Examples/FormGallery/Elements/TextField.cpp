// SPDX-License-Identifier: MIT
#include "FormGallery/Elements/TextField.h"

#include <Platform/Lifetime/WhileAlive.h>

namespace quor::gallery {

void TextField::setup()
{
    // `textEdited` is not emitted for a text that is set from code, which is no change by the user.
    QObject::connect(field_.get(), &QLineEdit::textEdited, field_.get(),
        platform::whileAlive(*this, [this](const QString&) {
            setHasChanges(true);
            notifyValueChanged();
        }));
}

void TextField::setValue(const QString& value)
{
    if (field_)
        field_->setText(value);
}

void TextField::setPlaceholder(const QString& placeholder)
{
    if (field_)
        field_->setPlaceholderText(placeholder);
}

void TextField::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (field_)
        field_->setEnabled(enabled);
}

} // namespace quor::gallery
