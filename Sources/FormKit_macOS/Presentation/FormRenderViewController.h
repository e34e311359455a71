// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Presentation/FormPopoverViewController.h"
#include "ToolKit/Colors/AppearanceMode.h"
#include "ToolKit/Deferred/EventProtocol.h"

#include <QPointer>

#include <any>
#include <memory>

class QWidget;

namespace quor::formkit {

class DefaultButton;
class Form;
class FormView;
class FormViewRenderer;
class InputAnchor;

enum class FormRenderEvent {
    sizeChanged = 0, ///< the view has been rendered, and has the size that the form needs; no payload
    close = 1, ///< the form or the Escape key asks to close; payload: that of the form's event, or none
    showForm = 2, ///< the form asks to push another; payload: std::shared_ptr<Form>
    back = 3 ///< the user pressed the back button; no payload
};

/// Shows one form: renders it, answers its events, and reports what its owner must do.
///
/// Changes of the form are rendered 0.1 seconds after the last of a burst. The view is at least as wide as
/// the form says, and as high as the rows are at that width; an owner that gives it less room makes it
/// scroll. A form that several controllers show is seen in the one that rendered it last. Hold it in a
/// `std::shared_ptr`. Main thread only.
class FormRenderViewController : public FormPopoverViewController,
                                 public toolkit::EventProtocol<FormRenderViewController, FormRenderEvent> {
    Q_OBJECT

public:
    /// `form` must not be null. `showBackNavigation` gives the heading a button that triggers `back`.
    FormRenderViewController(std::shared_ptr<Form> form, bool showBackNavigation, FormServices services);
    ~FormRenderViewController() override;

    [[nodiscard]] const std::shared_ptr<Form>& form() const { return form_; }
    [[nodiscard]] bool showBackNavigation() const { return showBackNavigation_; }
    /// Null until the view has been made.
    [[nodiscard]] const FormViewRenderer* formRenderer() const { return formRenderer_.get(); }

    /// Whether the heading stays in view while the rows are scrolled. The next render follows a change.
    [[nodiscard]] bool hasStickyHeaders() const { return hasStickyHeaders_; }
    void setHasStickyHeaders(bool hasStickyHeaders);
    /// Whether the background is that of a sidebar. The next render follows a change.
    [[nodiscard]] bool needsEffectView() const { return needsEffectView_; }
    void setNeedsEffectView(bool needsEffectView);

    /// Keeps in mind which view of the form has the keyboard, before another form takes its place. Returns
    /// whether the keyboard is in this form, or in no view of its window.
    [[nodiscard]] bool rememberFocus();
    /// Gives the keyboard to the remembered view, else to the first input; in a popover to no input.
    void takeFocus();

protected:
    std::unique_ptr<QWidget> loadView() override;
    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewDidLayout() override;
    /// Triggers `close`.
    bool cancelOperation() override;
    void popoverClosed(platform::ViewController& controller) override;

private:
    void listenToForm();
    void makeContent();
    void renderAnew();
    void replaceForm(const std::any& payload);
    void presentForm(const std::any& payload);
    void followAppearance();
    [[nodiscard]] FormView& formView();
    [[nodiscard]] QWidget* firstInput() const;
    /// The view with the keyboard, or that gets it with the window, if it is a part of the form; else null.
    [[nodiscard]] QWidget* focusedInput() const;

    std::shared_ptr<Form> form_;
    toolkit::AppearanceMode appearanceMode_;
    bool showBackNavigation_;
    std::unique_ptr<FormViewRenderer> formRenderer_;
    bool hasStickyHeaders_ = false;
    bool needsEffectView_ = false;
    bool isContentOutdated_ = false; ///< the content was made for other settings
    QPointer<InputAnchor> inputAnchor_; ///< owned by the view, as the next one
    QPointer<DefaultButton> defaultButton_;
    QPointer<QWidget> rememberedFocus_;
};

} // namespace quor::formkit
