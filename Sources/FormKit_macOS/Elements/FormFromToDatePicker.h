// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementFromToDatePicker.h"
#include "FormKit/FormViewFactoryProtocoll.h"
#include "FormKit_macOS/Elements/FormBase.h"

#include <QLabel>

namespace quor::formkit {

/// Two date pickers beside each other. When the user changes one of them, the other follows, so that both or
/// neither have a date, and the first is never later than the second. Values from code stay as they are.
class FormFromToDatePicker final : public FormBase, public FormElementFromToDatePicker {
public:
    /// `factory` makes both pickers, and is not kept.
    FormFromToDatePicker(Construction construction, const FormViewFactoryProtocoll& factory);
    ~FormFromToDatePicker() override;

    [[nodiscard]] std::optional<platform::Date> fromValue() const override { return fromPicker_->value(); }
    void setFromValue(std::optional<platform::Date> value) override { fromPicker_->setValue(value); }
    [[nodiscard]] std::optional<platform::Date> toValue() const override { return toPicker_->value(); }
    void setToValue(std::optional<platform::Date> value) override { toPicker_->setValue(value); }
    [[nodiscard]] platform::Date fromPromptValue() const override { return fromPicker_->promptValue(); }
    void setFromPromptValue(platform::Date value) override { fromPicker_->setPromptValue(value); }
    [[nodiscard]] platform::Date toPromptValue() const override { return toPicker_->promptValue(); }
    void setToPromptValue(platform::Date value) override { toPicker_->setPromptValue(value); }
    [[nodiscard]] QString toText() const override { return toText_; }
    void setToText(const QString& text) override;
    [[nodiscard]] DatePickerMode mode() const override { return fromPicker_->mode(); }
    void setMode(DatePickerMode mode) override;
    [[nodiscard]] bool showsClearButton() const override { return fromPicker_->showsClearButton(); }
    void setShowsClearButton(bool showsClearButton) override;

    [[nodiscard]] bool enabled() const override { return fromPicker_->enabled(); }
    void setEnabled(bool enabled) override;
    [[nodiscard]] bool hasChanges() const override;
    void setHasChanges(bool hasChanges) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override;
    void setup() override;

private:
    void fromChanged();
    void toChanged();

    std::shared_ptr<FormElementDatePicker> fromPicker_;
    std::shared_ptr<FormElementDatePicker> toPicker_;
    platform::WidgetHandle<QWidget> container_ = platform::makeWidget<QWidget>();
    platform::WidgetHandle<QLabel> toTextField_ = platform::makeWidget<QLabel>();
    QString toText_;
};

} // namespace quor::formkit
