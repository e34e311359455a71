// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

namespace quor::formkit {

/// Describes a state: a title, a message and a button below each other, over the whole width.
class FormElementState : public virtual FormElement {
public:
    [[nodiscard]] virtual QString title() const = 0;
    virtual void setTitle(const QString& title) = 0;

    [[nodiscard]] virtual QString message() const = 0;
    virtual void setMessage(const QString& message) = 0;

    [[nodiscard]] virtual QString buttonTitle() const = 0;
    virtual void setButtonTitle(const QString& buttonTitle) = 0;

    /// Called when the button is clicked. It may release the element.
    using Action = platform::Callback<void()>;
    [[nodiscard]] virtual Action action() const = 0;
    virtual void setAction(Action action) = 0;
};

} // namespace quor::formkit
