// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

class BackButton;
class ElidedLabel;

/// A heading of one line, with or without a button that leads back.
class FormTitle final : public FormBase {
public:
    enum class TitleType { title, subtitle };

    FormTitle(Construction construction, TitleType type, bool showBackButton);

    [[nodiscard]] TitleType type() const { return type_; }
    [[nodiscard]] bool showBackButton() const { return backButton_; }

    /// Shown in one line, and elided if it is too long for it. Empty at first.
    [[nodiscard]] QString text() const { return text_; }
    void setText(const QString& text);

    /// Called when the user clicks the back button. It may release the element.
    using BackButtonHandler = platform::Callback<void()>;
    [[nodiscard]] BackButtonHandler backButtonHandler() const { return backButtonHandler_; }
    void setBackButtonHandler(BackButtonHandler handler) { backButtonHandler_ = std::move(handler); }

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    void setup() override;

private:
    TitleType type_;
    platform::WidgetHandle<QWidget> container_ = platform::makeWidget<QWidget>();
    BackButton* backButton_ = nullptr; // child of `container_`, null without one
    ElidedLabel* textField_; // child of `container_`
    QString text_;
    BackButtonHandler backButtonHandler_;
};

} // namespace quor::formkit
