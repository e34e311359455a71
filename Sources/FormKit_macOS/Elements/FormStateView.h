// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementState.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

class LargerButton;
class ResizeTextView;

/// A title, a message and a button below each other, centred in the form's whole width. Those without a text
/// take no room.
class FormStateView final : public FormBase, public FormElementState {
public:
    explicit FormStateView(Construction construction);

    [[nodiscard]] QString title() const override { return title_; }
    void setTitle(const QString& title) override;
    [[nodiscard]] QString message() const override { return message_; }
    void setMessage(const QString& message) override;
    [[nodiscard]] QString buttonTitle() const override { return buttonTitle_; }
    void setButtonTitle(const QString& buttonTitle) override;
    [[nodiscard]] Action action() const override { return action_; }
    void setAction(Action action) override { action_ = std::move(action); }

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    void setup() override;

private:
    platform::WidgetHandle<QWidget> container_ = platform::makeWidget<QWidget>();
    ResizeTextView* titleField_; // child of `container_`, like the next two
    ResizeTextView* messageField_;
    LargerButton* button_;
    QString title_;
    QString message_;
    QString buttonTitle_;
    Action action_;
};

} // namespace quor::formkit
