// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormDualElement.h"
#include "FormKit_macOS/Controls/SideBySide.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// Two elements beside each other in one row. Each has its own value and its own handler; the `valueChanged`
/// of the row is never called. Make it with `makeElement<FormDualInput>(left, right)`.
class FormDualInput final : public FormBase, public FormDualElement {
public:
    /// Neither element may be null, nor be in a form or in another row.
    FormDualInput(Construction construction, std::shared_ptr<FormElement> leftElement,
        std::shared_ptr<FormElement> rightElement);

    [[nodiscard]] FormElement& leftElement() const override { return *leftElement_; }
    [[nodiscard]] FormElement& rightElement() const override { return *rightElement_; }

    /// These apply to both elements.
    void setHidden(bool hidden) override;
    void setEnabled(bool enabled) override;
    void setHasChanges(bool hasChanges) override;
    /// Whether one of the elements has changes.
    [[nodiscard]] bool hasChanges() const override;

    /// Takes the present views of the elements.
    [[nodiscard]] QWidget* view() const override;
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override;

private:
    std::shared_ptr<FormElement> leftElement_;
    std::shared_ptr<FormElement> rightElement_;
    platform::WidgetHandle<SideBySide> container_ = platform::makeWidget<SideBySide>();
};

} // namespace quor::formkit
