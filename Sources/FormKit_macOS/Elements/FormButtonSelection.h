// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementButtonSelection.h"
#include "FormKit_macOS/Controls/SegmentRow.h"
#include "FormKit_macOS/Elements/FormBase.h"

namespace quor::formkit {

/// A row of joined buttons, of which the user chooses one, or any number. Its view is a `SegmentedControl`.
/// Buttons with the same tag are chosen together.
class FormButtonSelection final : public FormBase, public FormElementButtonSelection {
public:
    using FormBase::FormBase;

    [[nodiscard]] std::vector<Button> buttons() const override { return buttons_; }
    void setButtons(std::vector<Button> buttons) override;
    [[nodiscard]] bool allowMultipleSelection() const override { return allowMultipleSelection_; }
    void setAllowMultipleSelection(bool allowMultipleSelection) override;
    [[nodiscard]] int selectedTag() const override { return selectedTag_; }
    void setSelectedTag(int tag) override;
    [[nodiscard]] std::set<int> selectedTags() const override { return selectedTags_; }
    void setSelectedTags(std::set<int> tags) override;

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return row_.get(); }
    void setup() override;

private:
    void clicked(int segment);
    void updateStates();

    std::vector<Button> buttons_;
    bool allowMultipleSelection_ = false;
    int selectedTag_ = 0;
    std::set<int> selectedTags_;
    platform::WidgetHandle<SegmentRow> row_ = platform::makeWidget<SegmentRow>();
};

} // namespace quor::formkit
