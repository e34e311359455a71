// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Presentation/FormServices.h"
#include "FormKit_macOS/Presentation/FormSlide.h"
#include "Platform/Views/ViewController.h"
#include "ToolKit/Colors/AppearanceMode.h"
#include "ToolKit/Deferred/EventProtocol.h"

#include <any>
#include <memory>
#include <vector>

namespace quor::formkit {

class BackNavigation;
class Form;
class FormRenderViewController;

enum class FormContainerEvent {
    /// The view has a new size, which its owner follows. No payload.
    sizeChanged = 0,
    close = 1 ///< the user wants to close all forms; no payload, except that of a `back` on the root
};

/// A stack of forms, of which the user sees the top one. A form that asks for a further one slides out to the
/// side; the user comes back by the button in the title of the new form, by Alt+Left, or by the back button
/// of the mouse.
///
/// This is what an application shows in a window (see `FormWindow`) or in a popover. The view takes the size
/// that the top form needs and triggers `sizeChanged`; an owner that cannot give it that size gives it
/// another, and the form is scrolled. During a slide the size stays, and is updated at the end. Hold it in a
/// `std::shared_ptr`. Main thread only.
class FormContainerViewController
    : public platform::ViewController,
      public toolkit::EventProtocol<FormContainerViewController, FormContainerEvent> {
    Q_OBJECT

public:
    using RenderViewControllers = std::vector<std::shared_ptr<FormRenderViewController>>;

    /// `form` must not be null.
    FormContainerViewController(std::shared_ptr<Form> form, FormServices services);
    ~FormContainerViewController() override;

    /// The stack, the root first. Empty until the view has been made.
    [[nodiscard]] const RenderViewControllers& formRenderViewControllers() const
    {
        return formRenderViewControllers_;
    }
    [[nodiscard]] const std::shared_ptr<FormRenderViewController>& rootViewController() const
    {
        return rootViewController_;
    }
    /// The top form. Never null.
    [[nodiscard]] const std::shared_ptr<Form>& form() const;

    /// Whether the headings of the forms stay in view while the rows are scrolled. False at first.
    [[nodiscard]] bool hasStickyHeaders() const { return hasStickyHeaders_; }
    void setHasStickyHeaders(bool hasStickyHeaders);
    /// Whether the forms have the background of a sidebar (see `FlippedEffectView`). False at first.
    [[nodiscard]] bool needsEffectView() const { return needsEffectView_; }
    void setNeedsEffectView(bool needsEffectView);

    /// Shows `controller` in front of the others. Ends a slide that is under way first. Ignored for null, and
    /// for a controller that is on the stack.
    void push(std::shared_ptr<FormRenderViewController> controller);
    /// Goes back to the form below the top one. With a single form, triggers `close` with `payload`.
    void pop(const std::any& payload = {});
    /// Called when a form asks to be closed. Triggers `close`; goes back by one form instead if `payload` is
    /// a `std::shared_ptr<FormRenderViewController>` to the top controller, and not the only one.
    void close(const std::any& payload);
    /// Gives the view the size that the top form needs, and triggers `sizeChanged`. Has no effect during a
    /// slide, which does the same at its end.
    void updateSize();

protected:
    /// Called first when a form asks to be closed. `payload` is that of the form's event.
    virtual void formWillClose(const std::any& payload);

    std::unique_ptr<QWidget> loadView() override;
    void viewDidLoad() override;
    void viewWillAppear() override;

private:
    void listenTo(FormRenderViewController& controller);
    void showForm(const std::any& payload);
    void configure(FormRenderViewController& controller) const;
    void followStack();

    FormServices services_;
    toolkit::AppearanceMode appearanceMode_;
    RenderViewControllers formRenderViewControllers_;
    std::shared_ptr<FormRenderViewController> rootViewController_;
    bool hasStickyHeaders_ = false;
    bool needsEffectView_ = false;
    FormSlide slide_;
    std::unique_ptr<BackNavigation> backNavigation_; ///< exists while the user can go back
};

} // namespace quor::formkit
