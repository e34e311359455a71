// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"
#include "FormKit/FormItem.h"

#include <optional>
#include <vector>

namespace quor::formkit {

/// A button that opens a list, from which the user chooses one item.
class FormElementDropDown : public virtual FormElement {
public:
    [[nodiscard]] virtual const std::vector<FormItem>& items() const = 0;
    /// Returns `nullopt` if the index is outside of the list.
    [[nodiscard]] virtual std::optional<FormItem> item(int index) const = 0;
    /// Returns the index of the first equal item.
    [[nodiscard]] virtual std::optional<int> index(const FormItem& item) const = 0;

    virtual void addSeparator() = 0;
    virtual void add(FormItem item) = 0;
    /// Inserts at the front.
    virtual void insert(FormItem item) = 0;
    virtual void removeAllItems() = 0;

    /// An index of `items`, or `nullopt`, as at first.
    [[nodiscard]] virtual std::optional<int> selectedIndex() const = 0;
    virtual void setSelectedIndex(std::optional<int> index) = 0;

    /// The name of the selected item.
    [[nodiscard]] virtual std::optional<QString> selectedName() const = 0;
    [[nodiscard]] virtual std::optional<FormItem> selectedItem() const = 0;
    virtual void setSelectedItem(const std::optional<FormItem>& item) = 0;
    /// The value of the selected item. The setter selects the first item with this value; none, if there is
    /// no such item.
    [[nodiscard]] virtual std::optional<QString> selectedValue() const = 0;
    virtual void setSelectedValue(const std::optional<QString>& value) = 0;
};

} // namespace quor::formkit
