// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormMultilineTextInput.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/PlainTextView.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Lifetime/WhileAlive.h"

using namespace Qt::StringLiterals;

namespace quor::formkit {

void FormMultilineTextInput::setup()
{
    setHintText(FormMacOSResource::localizedString(u"FormMultilineDismissInfo"_s));
    container_->setDidChangeHandler(platform::whileAlive(*this, [this](TextContainerView&) {
        setHasChanges(true);
        notifyValueChanged();
    }));
    container_->setDidEndEditingHandler(
        platform::whileAlive(*this, [this](TextContainerView&) { dismissHandler_(*this); }));
}

QString FormMultilineTextInput::value() const
{
    return container_ ? container_->textView().shownText() : QString();
}

void FormMultilineTextInput::setValue(const QString& value)
{
    if (container_)
        container_->textView().setShownText(value);
}

void FormMultilineTextInput::setHintText(const QString& hintText)
{
    hintText_ = hintText;
    if (!container_)
        return;
    const int width = container_->width();
    const int height = container_->heightForWidth(width);
    container_->setHintText(hintText);
    if (Form* const owner = form(); owner && container_->heightForWidth(width) != height)
        owner->setNeedsRender(true);
}

void FormMultilineTextInput::setEnableSpellChecking(bool enableSpellChecking)
{
    enableSpellChecking_ = enableSpellChecking;
    if (container_)
        container_->textView().setChecksSpelling(enableSpellChecking);
}

void FormMultilineTextInput::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (container_)
        container_->setEnabled(enabled);
}

std::vector<QWidget*> FormMultilineTextInput::focusableViews() const
{
    return {container_ ? &container_->textView() : nullptr};
}

} // namespace quor::formkit
