// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementButton.h"
#include "FormKit_macOS/Controls/LargerButton.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// A push button at one side of its row. A title that is too long for the row is elided.
class FormButton final : public FormBase, public FormElementButton {
public:
    using FormBase::FormBase;

    /// The control itself, which a presenter may place elsewhere than in `view`. Owned by this element.
    [[nodiscard]] LargerButton* button() const { return button_.get(); }
    /// Puts `button` back into `view`. Has no effect if it is there.
    void restoreButton();

    [[nodiscard]] FormTextAlignment alignment() const override { return alignment_; }
    void setAlignment(FormTextAlignment alignment) override;
    [[nodiscard]] QString title() const override { return title_; }
    void setTitle(const QString& title) override;
    [[nodiscard]] bool parseMarkdown() const override { return parseMarkdown_; }
    void setParseMarkdown(bool parseMarkdown) override;
    [[nodiscard]] FormButtonStyle style() const override { return style_; }
    void setStyle(FormButtonStyle style) override;
    [[nodiscard]] bool showProgress() const override { return showProgress_; }
    void setShowProgress(bool showProgress) override;
    [[nodiscard]] ButtonClicked buttonClickedHandler() const override { return buttonClickedHandler_; }
    void setButtonClickedHandler(ButtonClicked handler) override
    {
        buttonClickedHandler_ = std::move(handler);
    }
    /// Sets the property "destructive" of the button, which a style can look at. Qt's own styles draw all
    /// buttons alike.
    void setHasDestructiveAction(bool hasDestructiveAction) override;

    void setHidden(bool hidden) override;
    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    void setup() override;

private:
    void align();

    platform::WidgetHandle<QWidget> container_ = platform::makeWidget<QWidget>();
    platform::WidgetHandle<LargerButton> button_ = platform::makeWidget<LargerButton>();
    bool showProgress_ = false;
    FormButtonStyle style_ = FormButtonStyle::rounded;
    FormTextAlignment alignment_ = FormTextAlignment::left;
    QString title_;
    bool parseMarkdown_ = false;
    ButtonClicked buttonClickedHandler_;
};

} // namespace quor::formkit
