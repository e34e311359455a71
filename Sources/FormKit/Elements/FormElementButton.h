// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormTextAlignment.h"
#include "FormKit/FormElement.h"

namespace quor::formkit {

enum class FormButtonStyle {
    rounded, ///< with a frame, its title centred
    textOnly ///< without a frame
};

/// A push button.
class FormElementButton : public virtual FormElement {
public:
    /// The side of the row where the button stands; `center` means `left`. `left` at first.
    [[nodiscard]] virtual FormTextAlignment alignment() const = 0;
    virtual void setAlignment(FormTextAlignment alignment) = 0;

    [[nodiscard]] virtual QString title() const = 0;
    virtual void setTitle(const QString& title) = 0;

    /// Whether the title may contain Markdown marks. False at first.
    [[nodiscard]] virtual bool parseMarkdown() const = 0;
    virtual void setParseMarkdown(bool parseMarkdown) = 0;

    /// `rounded` at first.
    [[nodiscard]] virtual FormButtonStyle style() const = 0;
    virtual void setStyle(FormButtonStyle style) = 0;

    /// Whether the button shows that work goes on, and cannot be pressed. False at first.
    [[nodiscard]] virtual bool showProgress() const = 0;
    virtual void setShowProgress(bool showProgress) = 0;

    /// It may remove the button from its form, and may release it.
    using ButtonClicked = platform::Callback<void(FormElementButton&)>;
    [[nodiscard]] virtual ButtonClicked buttonClickedHandler() const = 0;
    virtual void setButtonClickedHandler(ButtonClicked handler) = 0;

    /// Marks the button as one that destroys something, where the desktop draws such buttons differently.
    virtual void setHasDestructiveAction(bool hasDestructiveAction) = 0;
};

} // namespace quor::formkit
