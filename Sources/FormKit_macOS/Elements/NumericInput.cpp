// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/NumericInput.h"

#include "Platform/Lifetime/WhileAlive.h"

#include <cmath>

namespace quor::formkit {

void NumericInput::setup()
{
    QObject::connect(
        textInput_.get(), &InputField::edited, textInput_.get(), platform::whileAlive(*this, [this] {
            setHasChanges(true);
            notifyValueChanged();
        }));
    QObject::connect(textInput_.get(), &QLineEdit::editingFinished, textInput_.get(),
        platform::whileAlive(*this, [this] { editingEnded(); }));
    showNumber(0);
}

void NumericInput::editingEnded()
{
    if (!textInput_ || !textInput_->isEdited())
        return;
    const double typed = shownNumber();
    showNumber(typed);
    if (shownNumber() != typed)
        notifyValueChanged();
}

double NumericInput::shownNumber() const
{
    return textInput_ ? numberIn(textInput_->text()) : 0;
}

void NumericInput::showNumber(double number)
{
    if (textInput_)
        textInput_->setShownText(textOf(std::isfinite(number) ? number : 0));
}

void NumericInput::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (textInput_)
        textInput_->setEnabled(enabled);
}

} // namespace quor::formkit
