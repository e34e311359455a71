// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// An input of a text with any number of lines.
class FormElementMultilineTextInput : public virtual FormElement {
public:
    /// With '\n' for each line break, and without what an input method is composing.
    [[nodiscard]] virtual QString value() const = 0;
    virtual void setValue(const QString& value) = 0;

    /// A short text below the input. At first it says how the user leaves the input. Takes no room if empty.
    [[nodiscard]] virtual QString hintText() const = 0;
    virtual void setHintText(const QString& hintText) = 0;

    /// Whether misspelled words are marked, if the desktop has a dictionary. True at first.
    [[nodiscard]] virtual bool enableSpellChecking() const = 0;
    virtual void setEnableSpellChecking(bool enableSpellChecking) = 0;

    /// Called when the keyboard leaves the input, for another view or for none. It may remove and release the
    /// element.
    using Dismissed = platform::Callback<void(FormElementMultilineTextInput&)>;
    [[nodiscard]] virtual Dismissed dismissHandler() const = 0;
    virtual void setDismissHandler(Dismissed dismissHandler) = 0;
};

} // namespace quor::formkit
