// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Presentation/FormServices.h"
#include "Platform/Views/Popover.h"
#include "Platform/Views/ViewController.h"

#include <memory>

namespace quor::formkit {

class FormPopover;

/// A controller that can show another one in a popover, one at a time. Hold it in a `std::shared_ptr`. Main
/// thread only.
class FormPopoverViewController : public platform::ViewController, public platform::PopoverDelegate {
    Q_OBJECT

public:
    explicit FormPopoverViewController(FormServices services);
    /// Closes the popover.
    ~FormPopoverViewController() override;

    using ViewController::present;
    /// Shows `controller` in a popover on the `preferredEdge` side of `view`, in place of the popover that is
    /// open. If `view` is a `SegmentedControl` or a part of one, the popover points to the selected
    /// segment, or to the first one if none is.
    ///
    /// If the open popover and `controller` are both containers that show forms of the same class, only
    /// closes the popover: the second click on a button closes what the first one has opened. Ignored while
    /// the view of this controller is not shown.
    void present(std::shared_ptr<platform::ViewController> controller, QWidget& view, bool isImportant,
        platform::RectEdge preferredEdge);
    /// Closes the popover without asking. `popoverClosed` is not called.
    void closePopover();
    /// Null if no popover is open.
    [[nodiscard]] FormPopover* activePopover() const { return activePopover_.get(); }

    /// Whether a press outside it or the Escape key may close `popover`: an important popover closes only
    /// after the user has detached it.
    [[nodiscard]] virtual bool shouldClose(const platform::Popover& popover) const;
    /// Whether the user may detach popovers.
    [[nodiscard]] virtual bool shouldDetach() const { return true; }

    bool popoverShouldClose(platform::Popover& popover) override { return shouldClose(popover); }
    bool popoverShouldDetach(platform::Popover&) override { return shouldDetach(); }
    void popoverDidClose(platform::Popover& popover) override;

protected:
    /// Called when the popover that showed `controller` has closed, except by `closePopover`.
    virtual void popoverClosed(platform::ViewController& controller);

    [[nodiscard]] const FormServices& services() const { return services_; }

private:
    void open(std::shared_ptr<platform::ViewController> controller, QWidget& view, bool isImportant,
        platform::RectEdge preferredEdge);

    FormServices services_;
    std::unique_ptr<FormPopover> activePopover_;
};

} // namespace quor::formkit
