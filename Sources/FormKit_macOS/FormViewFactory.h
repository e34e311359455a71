// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormViewFactoryProtocoll.h"

namespace quor::formkit {

/// Makes the elements of this module. Has no state. Main thread only, after the `QApplication`.
class FormViewFactory final : public FormViewFactoryProtocoll {
public:
    [[nodiscard]] std::shared_ptr<FormElementButton> button() const override;
    [[nodiscard]] std::shared_ptr<FormElementCheckBox> checkBox() const override;
    [[nodiscard]] std::shared_ptr<FormElementColorPicker> colorPicker() const override;
    [[nodiscard]] std::shared_ptr<FormElementDatePicker> datePicker() const override;
    [[nodiscard]] std::shared_ptr<FormElementDistanceInput> distanceInput() const override;
    [[nodiscard]] std::shared_ptr<FormElementDropDown> dropDown() const override;
    [[nodiscard]] std::shared_ptr<FormElementDurationInput> durationInput() const override;
    [[nodiscard]] std::shared_ptr<FormElementHintText> hintText() const override;
    [[nodiscard]] std::shared_ptr<FormElementMoneyInput> moneyInput() const override;
    [[nodiscard]] std::shared_ptr<FormElementMultilineTextInput> multilineTextInput() const override;
    [[nodiscard]] std::shared_ptr<FormElementSeparator> separator() const override;
    [[nodiscard]] std::shared_ptr<FormElementTextInput> textInput() const override;
    [[nodiscard]] std::shared_ptr<FormElementNumberInput> numberInput() const override;
    [[nodiscard]] std::shared_ptr<FormElementButtonSelection> buttonSelection() const override;
    [[nodiscard]] std::shared_ptr<FormElementState> state() const override;
    [[nodiscard]] std::shared_ptr<FormElementDetailActionButton> detailActionButton() const override;
    [[nodiscard]] std::shared_ptr<FormElementDetailInfoButton> detailInfoButton() const override;
};

} // namespace quor::formkit
