// SPDX-License-Identifier: MIT
#pragma once

#include <FormKit_macOS/Elements/FormBase.h>

#include <QLineEdit>

namespace quor::gallery {

/// An input of one line of text: an element that an application has written for itself.
class TextField final : public formkit::FormBase {
public:
    using FormBase::FormBase;

    [[nodiscard]] QString value() const { return field_ ? field_->text() : QString(); }
    void setValue(const QString& value);
    /// Shown while the field is empty.
    void setPlaceholder(const QString& placeholder);

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return field_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override { return {field_.get()}; }
    void setup() override;

private:
    platform::WidgetHandle<QLineEdit> field_ = platform::makeWidget<QLineEdit>();
};

} // namespace quor::gallery
