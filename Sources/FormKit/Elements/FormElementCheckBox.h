// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

class QUrl;

namespace quor::formkit {

/// A check box with a text, which may contain links.
class FormElementCheckBox : public virtual FormElement {
public:
    /// Markdown marks are rendered.
    [[nodiscard]] virtual QString title() const = 0;
    virtual void setTitle(const QString& title) = 0;

    /// The text while the box is checked. If it is empty, `title` is shown then, too.
    [[nodiscard]] virtual QString alternateTitle() const = 0;
    virtual void setAlternateTitle(const QString& alternateTitle) = 0;

    /// Whether the box is checked. False at first.
    [[nodiscard]] virtual bool value() const = 0;
    virtual void setValue(bool value) = 0;

    using LinkClicked = platform::Callback<void(const QUrl&)>;
    [[nodiscard]] virtual LinkClicked linkClicked() const = 0;
    virtual void setLinkClicked(LinkClicked linkClicked) = 0;
};

} // namespace quor::formkit
