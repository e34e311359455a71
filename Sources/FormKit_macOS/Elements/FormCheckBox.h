// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementCheckBox.h"
#include "FormKit_macOS/Controls/ToggleRow.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// A check box with a text that wraps. A click on the text toggles the box, a click on a link in it does not.
class FormCheckBox final : public FormBase, public FormElementCheckBox {
public:
    explicit FormCheckBox(Construction construction);

    [[nodiscard]] QString title() const override { return title_; }
    void setTitle(const QString& title) override;
    [[nodiscard]] QString alternateTitle() const override { return alternateTitle_; }
    void setAlternateTitle(const QString& alternateTitle) override;
    [[nodiscard]] bool value() const override { return value_; }
    void setValue(bool value) override;
    [[nodiscard]] LinkClicked linkClicked() const override { return linkClicked_; }
    void setLinkClicked(LinkClicked linkClicked) override { linkClicked_ = std::move(linkClicked); }

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return row_.get(); }
    void setup() override;

private:
    void updateText();
    void toggled(bool value);

    LinkClicked linkClicked_;
    platform::WidgetHandle<ToggleRow> row_;
    QString alternateTitle_;
    QString title_;
    bool value_ = false;
};

} // namespace quor::formkit
