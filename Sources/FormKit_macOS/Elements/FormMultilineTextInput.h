// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementMultilineTextInput.h"
#include "FormKit_macOS/Controls/TextContainerView.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// An input of a plain text with any number of lines, in a field that is five lines high and scrolls. The
/// hint below says at first how the user leaves the field: the Return key begins a line, and Tab goes on.
///
/// Misspelled words have wavy lines, and suggestions in the context menu, if the desktop has a dictionary for
/// one of the user's languages.
class FormMultilineTextInput final : public FormBase, public FormElementMultilineTextInput {
public:
    using FormBase::FormBase;

    [[nodiscard]] QString value() const override;
    void setValue(const QString& value) override;
    [[nodiscard]] QString hintText() const override { return hintText_; }
    void setHintText(const QString& hintText) override;
    [[nodiscard]] bool enableSpellChecking() const override { return enableSpellChecking_; }
    void setEnableSpellChecking(bool enableSpellChecking) override;
    [[nodiscard]] Dismissed dismissHandler() const override { return dismissHandler_; }
    void setDismissHandler(Dismissed dismissHandler) override { dismissHandler_ = std::move(dismissHandler); }

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return container_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override;
    void setup() override;

private:
    platform::WidgetHandle<TextContainerView> container_ = platform::makeWidget<TextContainerView>();
    QString hintText_;
    bool enableSpellChecking_ = true;
    Dismissed dismissHandler_;
};

} // namespace quor::formkit
