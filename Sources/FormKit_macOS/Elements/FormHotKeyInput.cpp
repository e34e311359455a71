// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormHotKeyInput.h"

#include "Platform/Lifetime/WhileAlive.h"

namespace quor::formkit {

FormHotKeyInput::FormHotKeyInput(
    Construction construction, platform::EventMonitors& monitors, const platform::KeyboardLayout& layout)
    : FormBase(construction)
    , textInput_(std::make_unique<HotkeyField>(monitors, layout))
{
}

void FormHotKeyInput::setup()
{
    textInput_->hotkeyChangeHandler = platform::whileAlive(*this, [this](HotkeyField&) {
        setHasChanges(true);
        notifyValueChanged();
    });
}

void FormHotKeyInput::setPlaceholderString(const QString& placeholderString)
{
    placeholderString_ = placeholderString;
    if (textInput_)
        textInput_->setPlaceholderText(placeholderString);
}

void FormHotKeyInput::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (textInput_)
        textInput_->setEnabled(enabled);
}

} // namespace quor::formkit
