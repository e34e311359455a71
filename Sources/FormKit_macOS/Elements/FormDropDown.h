// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDropDown.h"
#include "FormKit_macOS/DropDown/DropdownItems.h"
#include "FormKit_macOS/DropDown/DropdownPanel.h"
#include "FormKit_macOS/DropDown/PopUpButton.h"
#include "FormKit_macOS/Elements/FormBase.h"

#include <QPointer>

namespace quor::formkit {

/// A button that opens a list, in which the user can search if it has more than 20 items. An open list shows
/// the items as they were when it was opened; a choice of an item that is no longer there has no effect.
class FormDropDown final : public FormBase, public FormElementDropDown {
public:
    using FormBase::FormBase;
    ~FormDropDown() override;

    [[nodiscard]] const std::vector<FormItem>& items() const override { return items_.list(); }
    [[nodiscard]] std::optional<FormItem> item(int index) const override;
    [[nodiscard]] std::optional<int> index(const FormItem& item) const override;

    void addSeparator() override { add(FormItem()); }
    void add(FormItem item) override;
    void insert(FormItem item) override;
    void removeAllItems() override;

    [[nodiscard]] std::optional<int> selectedIndex() const override { return selectedIndex_; }
    void setSelectedIndex(std::optional<int> index) override;
    [[nodiscard]] std::optional<QString> selectedName() const override;
    [[nodiscard]] std::optional<FormItem> selectedItem() const override;
    void setSelectedItem(const std::optional<FormItem>& item) override;
    [[nodiscard]] std::optional<QString> selectedValue() const override;
    void setSelectedValue(const std::optional<QString>& value) override;

    /// Opens the list at a view that can be seen. Has no effect without items, while the element is disabled,
    /// or if the list is open.
    void show(QWidget& anchor);
    [[nodiscard]] bool isOpen() const;
    /// The panel of the list while that is open.
    [[nodiscard]] DropdownPanel* panel() const { return panel_; }

    void setEnabled(bool enabled) override;
    [[nodiscard]] QWidget* view() const override { return button_.get(); }
    [[nodiscard]] std::vector<QWidget*> focusableViews() const override;
    void setup() override;

private:
    void close();
    void updateButton();
    void itemsDidChange();
    /// The user has chosen this item of those that the list shows.
    void choose(const std::shared_ptr<const DropdownItems::List>& shown, int chosen);

    DropdownItems items_;
    platform::WidgetHandle<PopUpButton> button_ = platform::makeWidget<PopUpButton>();
    std::optional<int> selectedIndex_;
    DropdownPanel* panel_ = nullptr; // null once it is destroyed
};

} // namespace quor::formkit
