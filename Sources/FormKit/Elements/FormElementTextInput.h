// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

enum class TextInputType {
    text,
    secure, ///< shows no characters
    search,
    email,
    readonly
};

/// An input of one line of text.
class FormElementTextInput : public virtual FormElement {
public:
    /// Called for the Return key.
    using EnterPressed = platform::Callback<void(FormElementTextInput&)>;
    [[nodiscard]] virtual EnterPressed enterPressed() const = 0;
    virtual void setEnterPressed(EnterPressed enterPressed) = 0;

    /// Shown while the input is empty.
    [[nodiscard]] virtual QString placeholder() const = 0;
    virtual void setPlaceholder(const QString& placeholder) = 0;

    [[nodiscard]] virtual QString value() const = 0;
    virtual void setValue(const QString& value) = 0;

    /// `text` at first.
    [[nodiscard]] virtual TextInputType type() const = 0;
    virtual void setType(TextInputType type) = 0;

    /// Takes the keyboard away from the view that has it in the active window.
    virtual void endEditing() = 0;
};

} // namespace quor::formkit
