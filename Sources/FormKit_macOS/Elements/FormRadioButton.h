// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/ToggleRow.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// A radio button with a text that wraps.
///
/// Radio buttons that follow each other in the elements of a form are one group, of which one can be on. Any
/// other element between them, such as a separator or a title, begins the next group. The arrow keys choose
/// another one of the group. The handler `valueChanged` of the chosen one is called, and `hasChanges` stays
/// as it is.
class FormRadioButton final : public FormBase {
public:
    explicit FormRadioButton(Construction construction);

    /// Plain text. Empty at first.
    [[nodiscard]] QString title() const { return title_; }
    void setTitle(const QString& title);

    /// Whether this one is chosen. False at first. The setter turns the others of the group off, if it turns
    /// this one on.
    [[nodiscard]] bool isOn() const { return isOn_; }
    void setOn(bool isOn);

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return row_.get(); }
    void setup() override;

private:
    [[nodiscard]] std::vector<std::shared_ptr<FormRadioButton>> group() const;
    void choose();
    void chooseNeighbour(int step);

    platform::WidgetHandle<ToggleRow> row_;
    QString title_;
    bool isOn_ = false;
};

} // namespace quor::formkit
