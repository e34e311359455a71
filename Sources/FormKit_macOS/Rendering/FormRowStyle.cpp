// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Rendering/FormRowStyle.h"

#include "FormKit/Elements/FormElementState.h"
#include "FormKit_macOS/Elements/FormCheckBox.h"
#include "FormKit_macOS/Elements/FormRadioButton.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/Elements/FormTitle.h"

namespace quor::formkit {

namespace {

constexpr int unit = 8;

FormRowStyle styleBesideLabel(const Form& form, FormRowKind kind, std::optional<FormRowKind> previous)
{
    const int gap = !previous && kind == FormRowKind::title ? 2 * unit : unit;
    if (kind == FormRowKind::separator)
        return {FormRowExtent::separator, false, gap};
    if (kind == FormRowKind::title || kind == FormRowKind::state || form.inputSizeRatio() >= 1)
        return {FormRowExtent::full, false, gap};
    return {FormRowExtent::input, true, gap};
}

int gapAboveView(FormRowKind kind, std::optional<FormRowKind> previous)
{
    if (previous == FormRowKind::title)
        return unit / 2;
    if (kind == FormRowKind::title)
        return 2 * unit;
    if (!previous || previous == FormRowKind::separator || previous == FormRowKind::checkBox)
        return unit;
    if (previous == FormRowKind::radioButton && kind == FormRowKind::radioButton)
        return unit;
    return 2 * unit;
}

int gapAboveLabel(std::optional<FormRowKind> previous)
{
    return !previous || previous == FormRowKind::separator ? unit : 2 * unit;
}

FormRowStyle styleBelowLabel(FormRowKind kind, bool hasLabel, std::optional<FormRowKind> previous)
{
    if (kind == FormRowKind::separator)
        return {FormRowExtent::separator, false, gapAboveView(kind, previous)};
    if (kind == FormRowKind::title || kind == FormRowKind::state || !hasLabel)
        return {FormRowExtent::full, false, gapAboveView(kind, previous)};
    return {FormRowExtent::full, true, gapAboveLabel(previous)};
}

} // namespace

FormRowKind formRowKind(const FormElement& element)
{
    if (dynamic_cast<const FormSeparator*>(&element))
        return FormRowKind::separator;
    if (dynamic_cast<const FormTitle*>(&element))
        return FormRowKind::title;
    if (dynamic_cast<const FormElementState*>(&element))
        return FormRowKind::state;
    if (dynamic_cast<const FormCheckBox*>(&element))
        return FormRowKind::checkBox;
    if (dynamic_cast<const FormRadioButton*>(&element))
        return FormRowKind::radioButton;
    return FormRowKind::other;
}

FormRowStyle formRowStyle(
    const Form& form, FormRowKind kind, bool hasLabel, std::optional<FormRowKind> previous)
{
    switch (form.layout()) {
    case Form::Layout::leftHeaders:
        return styleBesideLabel(form, kind, previous);
    case Form::Layout::topHeaders:
        return styleBelowLabel(kind, hasLabel, previous);
    }
    return {};
}

} // namespace quor::formkit
