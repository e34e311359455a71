// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormHintText.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/ScaledFont.h"
#include "Platform/Lifetime/WhileAlive.h"

namespace quor::formkit {

void FormHintText::setup()
{
    textInput_->setColor(ResizeTextView::Color::secondaryText);
    textInput_->setFontScale(smallFontFactor);
    textInput_->setLinkClicked(platform::whileAlive(*this, [this](const QUrl& url) { linkClicked_(url); }));
}

void FormHintText::setTextColor(const QColor& color)
{
    textColor_ = color;
    if (textInput_)
        textInput_->setFixedColor(color);
}

void FormHintText::setIsBig(bool isBig)
{
    isBig_ = isBig;
    if (textInput_)
        textInput_->setFontScale(isBig ? 1 : smallFontFactor);
}

void FormHintText::setValue(const QString& value)
{
    value_ = value;
    if (!textInput_)
        return;
    const int width = textInput_->width();
    const int height = textInput_->heightForWidth(width);
    textInput_->setContent(value, parseMarkdown_);
    if (Form* const owner = form(); owner && textInput_->heightForWidth(width) != height)
        owner->setNeedsRender(true);
}

void FormHintText::setAlignment(FormTextAlignment alignment)
{
    alignment_ = alignment;
    if (textInput_)
        textInput_->setTextAlignment(alignment == FormTextAlignment::left ? Qt::AlignLeft
                : alignment == FormTextAlignment::right                   ? Qt::AlignRight
                                                                          : Qt::AlignHCenter);
}

void FormHintText::setParseMarkdown(bool parseMarkdown)
{
    parseMarkdown_ = parseMarkdown;
    setValue(value_);
}

void FormHintText::setEnabled(bool enabled)
{
    FormBase::setEnabled(enabled);
    if (textInput_)
        textInput_->setEnabled(enabled);
}

} // namespace quor::formkit
