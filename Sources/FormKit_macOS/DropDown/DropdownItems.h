// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormItem.h"

#include <memory>
#include <vector>

namespace quor::formkit {

/// The items of a drop-down, and what a list of them has to know of all items before it can open. Copies
/// share the items until one of them is changed, so that opening a long list copies nothing. Main thread
/// only.
class DropdownItems final {
public:
    using List = std::vector<FormItem>;

    [[nodiscard]] const List& list() const { return *list_; }
    /// The present items, which later changes of this object do not affect. The list is never changed while
    /// others share it, so other threads may read it.
    [[nodiscard]] std::shared_ptr<const List> shared() const { return list_; }

    void append(FormItem item);
    void prepend(FormItem item);
    void clear();

    [[nodiscard]] bool hasSeparators() const { return hasSeparators_; }
    /// The items that are likely to be the widest of all, in no order. All items, if there are only a few.
    [[nodiscard]] const List& widest() const { return widest_; }

private:
    [[nodiscard]] List& changeable();
    void note(const FormItem& item);

    std::shared_ptr<List> list_ = std::make_shared<List>();
    bool hasSeparators_ = false;
    List widest_;
    std::vector<int> widths_; ///< estimates for `widest_`
};

} // namespace quor::formkit
