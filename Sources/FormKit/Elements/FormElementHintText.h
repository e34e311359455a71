// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormTextAlignment.h"
#include "FormKit/FormElement.h"

#include <QColor>

class QUrl;

namespace quor::formkit {

/// A text over as many lines as it needs.
class FormElementHintText : public virtual FormElement {
public:
    /// The colour of the text. Invalid at first, which means that of secondary texts.
    [[nodiscard]] virtual QColor textColor() const = 0;
    virtual void setTextColor(const QColor& color) = 0;

    /// Whether the text has the desktop's font size instead of the small one. False at first.
    [[nodiscard]] virtual bool isBig() const = 0;
    virtual void setIsBig(bool isBig) = 0;

    /// The setter makes the form render again if the text then needs another height.
    [[nodiscard]] virtual QString value() const = 0;
    virtual void setValue(const QString& value) = 0;

    /// `left` at first.
    [[nodiscard]] virtual FormTextAlignment alignment() const = 0;
    virtual void setAlignment(FormTextAlignment alignment) = 0;

    /// Whether the text may contain Markdown marks. False at first.
    [[nodiscard]] virtual bool parseMarkdown() const = 0;
    virtual void setParseMarkdown(bool parseMarkdown) = 0;

    using LinkClicked = platform::Callback<void(const QUrl&)>;
    [[nodiscard]] virtual LinkClicked linkClicked() const = 0;
    virtual void setLinkClicked(LinkClicked linkClicked) = 0;
};

} // namespace quor::formkit
