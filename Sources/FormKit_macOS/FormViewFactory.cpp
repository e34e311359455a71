// SPDX-License-Identifier: MIT
#include "FormKit_macOS/FormViewFactory.h"

#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/Elements/FormButtonSelection.h"
#include "FormKit_macOS/Elements/FormCheckBox.h"
#include "FormKit_macOS/Elements/FormColorPicker.h"
#include "FormKit_macOS/Elements/FormDatePicker.h"
#include "FormKit_macOS/Elements/FormDetailActionButton.h"
#include "FormKit_macOS/Elements/FormDetailInfoButton.h"
#include "FormKit_macOS/Elements/FormDistanceInput.h"
#include "FormKit_macOS/Elements/FormDropDown.h"
#include "FormKit_macOS/Elements/FormDurationInput.h"
#include "FormKit_macOS/Elements/FormHintText.h"
#include "FormKit_macOS/Elements/FormMoneyInput.h"
#include "FormKit_macOS/Elements/FormMultilineTextInput.h"
#include "FormKit_macOS/Elements/FormNumberInput.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/Elements/FormStateView.h"
#include "FormKit_macOS/Elements/FormTextInput.h"

namespace quor::formkit {

std::shared_ptr<FormElementButton> FormViewFactory::button() const
{
    return makeElement<FormButton>();
}

std::shared_ptr<FormElementCheckBox> FormViewFactory::checkBox() const
{
    return makeElement<FormCheckBox>();
}

std::shared_ptr<FormElementColorPicker> FormViewFactory::colorPicker() const
{
    return makeElement<FormColorPicker>();
}

std::shared_ptr<FormElementDatePicker> FormViewFactory::datePicker() const
{
    return makeElement<FormDatePicker>();
}

std::shared_ptr<FormElementDistanceInput> FormViewFactory::distanceInput() const
{
    return makeElement<FormDistanceInput>();
}

std::shared_ptr<FormElementDropDown> FormViewFactory::dropDown() const
{
    return makeElement<FormDropDown>();
}

std::shared_ptr<FormElementDurationInput> FormViewFactory::durationInput() const
{
    return makeElement<FormDurationInput>();
}

std::shared_ptr<FormElementHintText> FormViewFactory::hintText() const
{
    return makeElement<FormHintText>();
}

std::shared_ptr<FormElementMoneyInput> FormViewFactory::moneyInput() const
{
    return makeElement<FormMoneyInput>();
}

std::shared_ptr<FormElementMultilineTextInput> FormViewFactory::multilineTextInput() const
{
    return makeElement<FormMultilineTextInput>();
}

std::shared_ptr<FormElementSeparator> FormViewFactory::separator() const
{
    return makeElement<FormSeparator>();
}

std::shared_ptr<FormElementTextInput> FormViewFactory::textInput() const
{
    return makeElement<FormTextInput>();
}

std::shared_ptr<FormElementNumberInput> FormViewFactory::numberInput() const
{
    return makeElement<FormNumberInput>();
}

std::shared_ptr<FormElementButtonSelection> FormViewFactory::buttonSelection() const
{
    return makeElement<FormButtonSelection>();
}

std::shared_ptr<FormElementState> FormViewFactory::state() const
{
    return makeElement<FormStateView>();
}

std::shared_ptr<FormElementDetailActionButton> FormViewFactory::detailActionButton() const
{
    return std::make_shared<FormDetailActionButton>();
}

std::shared_ptr<FormElementDetailInfoButton> FormViewFactory::detailInfoButton() const
{
    return std::make_shared<FormDetailInfoButton>();
}

} // namespace quor::formkit
