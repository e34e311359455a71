// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/InputField.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// Base class of the inputs of one number in a field. The field is never empty, except while the user edits
/// it: when the user leaves it, it shows the number that was read. If that rounds the number, `valueChanged`
/// is called once more. Main thread only.
class NumericInput : public FormBase {
public:
    using FormBase::FormBase;

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return textInput_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override { return {view()}; }
    void setup() override;

protected:
    /// The number that the field shows.
    [[nodiscard]] double shownNumber() const;
    /// Shows `number`; infinity and NaN as 0.
    void showNumber(double number);

    [[nodiscard]] virtual QString textOf(double number) const = 0;
    [[nodiscard]] virtual double numberIn(const QString& text) const = 0;

private:
    void editingEnded();

    platform::WidgetHandle<InputField> textInput_ = platform::makeWidget<InputField>();
};

} // namespace quor::formkit
