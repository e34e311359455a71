// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementTextInput.h"
#include "FormKit_macOS/Controls/InputField.h"
#include "FormKit_macOS/Elements/FormBase.h"
#include "ToolKit/Deferred/DelayedAction.h"

#include <array>

namespace quor::formkit {

/// An input of one line of text. `valueChanged` is called 0.3 seconds after the last of a burst of changes,
/// `hasChanges` is true from the first.
///
/// There is one field for the types `text` and `email`, and one for each other type. Each keeps its own text:
/// a change of the type changes the field, and with it the value. The next render shows the other field.
class FormTextInput final : public FormBase, public FormElementTextInput {
public:
    using FormBase::FormBase;

    [[nodiscard]] EnterPressed enterPressed() const override { return enterPressed_; }
    /// Called for the Return key, before the default button of the form; not for that of the keypad.
    void setEnterPressed(EnterPressed enterPressed) override { enterPressed_ = std::move(enterPressed); }
    [[nodiscard]] QString placeholder() const override { return placeholder_; }
    void setPlaceholder(const QString& placeholder) override;
    [[nodiscard]] QString value() const override;
    void setValue(const QString& value) override;
    [[nodiscard]] TextInputType type() const override { return type_; }
    void setType(TextInputType type) override;
    void endEditing() override;

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return field(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override { return {view()}; }
    void setup() override;

private:
    using Field = platform::WidgetHandle<InputField>;

    [[nodiscard]] static std::size_t indexOf(TextInputType type);
    [[nodiscard]] InputField* field() const { return fields_[indexOf(type_)].get(); }
    [[nodiscard]] Field makeField();
    void edited();

    toolkit::DelayedAction delayedWorker_{0.3};
    EnterPressed enterPressed_;
    std::array<Field, 4> fields_; ///< made when their types are first set
    QString placeholder_;
    TextInputType type_ = TextInputType::text;
};

} // namespace quor::formkit
