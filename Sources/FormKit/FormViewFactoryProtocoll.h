// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace quor::formkit {

class FormElementButton;
class FormElementButtonSelection;
class FormElementCheckBox;
class FormElementColorPicker;
class FormElementDatePicker;
class FormElementDetailActionButton;
class FormElementDetailInfoButton;
class FormElementDistanceInput;
class FormElementDropDown;
class FormElementDurationInput;
class FormElementHintText;
class FormElementMoneyInput;
class FormElementMultilineTextInput;
class FormElementNumberInput;
class FormElementSeparator;
class FormElementState;
class FormElementTextInput;

/// Makes the elements of forms. Each function returns a new element, never null. Main thread only.
class FormViewFactoryProtocoll {
public:
    virtual ~FormViewFactoryProtocoll() = default;

    [[nodiscard]] virtual std::shared_ptr<FormElementButton> button() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementCheckBox> checkBox() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementColorPicker> colorPicker() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementDatePicker> datePicker() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementDistanceInput> distanceInput() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementDropDown> dropDown() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementDurationInput> durationInput() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementHintText> hintText() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementMoneyInput> moneyInput() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementMultilineTextInput> multilineTextInput() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementSeparator> separator() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementTextInput> textInput() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementNumberInput> numberInput() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementButtonSelection> buttonSelection() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementState> state() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementDetailActionButton> detailActionButton() const = 0;
    [[nodiscard]] virtual std::shared_ptr<FormElementDetailInfoButton> detailInfoButton() const = 0;

protected:
    FormViewFactoryProtocoll() = default;
    FormViewFactoryProtocoll(const FormViewFactoryProtocoll&) = default;
    FormViewFactoryProtocoll& operator=(const FormViewFactoryProtocoll&) = default;
};

} // namespace quor::formkit
