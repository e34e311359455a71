// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormElement.h"

#include <set>
#include <vector>

namespace quor::formkit {

/// A row of buttons, of which the user chooses one, or any number.
class FormElementButtonSelection : public virtual FormElement {
public:
    struct Button {
        int tag = 0;
        QString title;

        friend bool operator==(const Button&, const Button&) = default;
    };

    /// Empty at first. The setter replaces the buttons on the screen.
    [[nodiscard]] virtual std::vector<Button> buttons() const = 0;
    virtual void setButtons(std::vector<Button> buttons) = 0;

    /// False at first.
    [[nodiscard]] virtual bool allowMultipleSelection() const = 0;
    virtual void setAllowMultipleSelection(bool allowMultipleSelection) = 0;

    /// The tag of the chosen button, if only one can be chosen. 0 at first.
    [[nodiscard]] virtual int selectedTag() const = 0;
    virtual void setSelectedTag(int tag) = 0;

    /// The tags of the chosen buttons, if several can be chosen. Empty at first.
    [[nodiscard]] virtual std::set<int> selectedTags() const = 0;
    virtual void setSelectedTags(std::set<int> tags) = 0;
};

} // namespace quor::formkit
