// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Popover.h"

#include <any>

namespace quor::formkit {

class FormContainerViewController;

/// A popover that follows the size of the forms in it and closes when they ask for it, if its content is a
/// `FormContainerViewController`. A form larger than the screen is scrolled. Main thread only.
class FormPopover : public platform::Popover {
public:
    using Popover::Popover;

    /// An important popover ignores presses outside it until the user has detached it. False at first.
    [[nodiscard]] bool isImportant() const { return isImportant_; }
    void setImportant(bool isImportant) { isImportant_ = isImportant; }

    void show(const QRect& anchor, QWidget& view, platform::RectEdge preferredEdge) override;

private:
    void followSize(FormContainerViewController& container, const std::any& payload);
    void closeForForm(FormContainerViewController& container, const std::any& payload);

    bool isImportant_ = false;
};

} // namespace quor::formkit
