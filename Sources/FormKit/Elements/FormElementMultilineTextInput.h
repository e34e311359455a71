// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// An input of a text with any number of lines.
class FormElementMultilineTextInput : public virtual FormElement {
public:
    [[nodiscard]] virtual QString value() const = 0;
    virtual void setValue(const QString& value) = 0;

    /// A short text below the input.
    [[nodiscard]] virtual QString hintText() const = 0;
    virtual void setHintText(const QString& hintText) = 0;

    [[nodiscard]] virtual bool enableSpellChecking() const = 0;
    virtual void setEnableSpellChecking(bool enableSpellChecking) = 0;

    /// Called when the user ends editing.
    using Dismissed = platform::Callback<void(FormElementMultilineTextInput&)>;
    [[nodiscard]] virtual Dismissed dismissHandler() const = 0;
    virtual void setDismissHandler(Dismissed dismissHandler) = 0;
};

} // namespace quor::formkit
