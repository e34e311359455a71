// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementHintText.h"
#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// A text over as many lines as it needs. The user can select it, and open its links.
class FormHintText final : public FormBase, public FormElementHintText {
public:
    using FormBase::FormBase;

    [[nodiscard]] QColor textColor() const override { return textColor_; }
    void setTextColor(const QColor& color) override;
    [[nodiscard]] bool isBig() const override { return isBig_; }
    void setIsBig(bool isBig) override;
    [[nodiscard]] QString value() const override { return value_; }
    void setValue(const QString& value) override;
    [[nodiscard]] FormTextAlignment alignment() const override { return alignment_; }
    void setAlignment(FormTextAlignment alignment) override;
    [[nodiscard]] bool parseMarkdown() const override { return parseMarkdown_; }
    void setParseMarkdown(bool parseMarkdown) override;
    [[nodiscard]] LinkClicked linkClicked() const override { return linkClicked_; }
    void setLinkClicked(LinkClicked linkClicked) override { linkClicked_ = std::move(linkClicked); }

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return textInput_.get(); }
    void setup() override;

private:
    LinkClicked linkClicked_;
    platform::WidgetHandle<ResizeTextView> textInput_ = platform::makeWidget<ResizeTextView>();
    FormTextAlignment alignment_ = FormTextAlignment::left;
    QString value_;
    bool parseMarkdown_ = false;
    bool isBig_ = false;
    QColor textColor_;
};

} // namespace quor::formkit
