// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Form.h"
#include "FormKit_macOS/Rendering/FormHeadingLayout.h"
#include "FormKit_macOS/Rendering/FormKeyboardLoop.h"
#include "FormKit_macOS/Rendering/FormRowLabel.h"
#include "FormKit_macOS/Rendering/FormRowLayout.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Lifetime/Trackable.h"
#include "Platform/Views/WidgetHandle.h"

#include <QPointer>

#include <memory>
#include <unordered_map>
#include <vector>

class QScrollArea;

namespace quor::formkit {

class FormButton;

/// Shows forms in one view: it places the views of a form's elements as rows, with their labels, a heading
/// and the keyboard loop. It is the only place that knows rows, headings and gaps.
///
/// The view gets its layout from the renderer and must have none before. Its height follows from the form:
/// ask `heightForWidth`, or let an outer layout do so. The views of elements live on when the view or the
/// renderer ends. Main thread only.
class FormViewRenderer final {
public:
    enum class RenderMode {
        normal = 0, ///< the heading is part of the rows
        stickyHeaders = 1 ///< the heading stays in sight while the rows scroll below it
    };

    /// `view` is borrowed, and may end before the renderer.
    FormViewRenderer(RenderMode mode, QWidget& view, bool showBackNavigation);
    ~FormViewRenderer();
    FormViewRenderer(const FormViewRenderer&) = delete;
    FormViewRenderer& operator=(const FormViewRenderer&) = delete;

    [[nodiscard]] RenderMode mode() const { return mode_; }
    /// Called by the heading's back button. To be set before the first render.
    using BackButtonHandler = platform::Callback<void()>;
    [[nodiscard]] BackButtonHandler backButtonHandler() const { return backButtonHandler_; }
    void setBackButtonHandler(BackButtonHandler handler) { backButtonHandler_ = std::move(handler); }

    /// Brings the view up to date with `form`, which must live until this returns. Has no effect if the form
    /// does not need it. During another render, which a handler of the application may cause, the form asks
    /// for a render again later. Views that stay keep their focus, caret and selection, and the scroll
    /// position stays, unless the form has notices: then it goes to the top.
    void render(Form& form);

    /// The rows of the last render: notices and elements, without hidden ones and collapsed separators.
    [[nodiscard]] const Form::Elements& renderedElements() const { return renderedElements_; }
    /// The rows that the renderer itself has made for the heading.
    [[nodiscard]] const Form::Elements& titleElements() const { return titleElements_; }
    /// Scrolls the rows in the mode `stickyHeaders`; without a parent otherwise. Owned by the
    /// renderer, also after `view` has ended.
    [[nodiscard]] QScrollArea* scrollView() const { return scrollView_.get(); }

    /// The first view of the keyboard loop that can take the focus. Null if there is none.
    [[nodiscard]] QWidget* firstFocusableView() const { return keyboardLoop_.firstFocusableView(); }
    /// The height that the whole form needs at `width`, in device-independent pixels; 0 if it is empty.
    [[nodiscard]] int heightForWidth(int width) const;

private:
    using Labels = std::unordered_map<const FormElement*, platform::WidgetHandle<FormRowLabel>>;

    using Views = std::vector<QPointer<QWidget>>;

    static Form::Elements collect(const Form& form, RenderMode mode);
    static void disable(const Form& form, const Form::Elements& titleElements);
    /// Clears the focus if its view will not stay where it is. Returns the controls that follow it then.
    [[nodiscard]] Views takeFocusFromLeavingView(const Form& form, const Form::Elements& elements) const;
    [[nodiscard]] bool staysInPlace(
        const QWidget& focused, const Form& form, const Form::Elements& elements) const;
    void focusFirstOf(const Views& controls) const;
    void clear();
    void makeTitleElements(const Form& form);
    void placeHeading(const Form& form, std::vector<FormKeyboardLoop::Row>& loop);
    static void restoreButtons(const std::vector<std::shared_ptr<FormButton>>& buttons);
    void placeRows(const Form& form, std::vector<FormKeyboardLoop::Row>& loop);
    static void discard(const Labels& labels);
    void scroll(bool toTop);

    RenderMode mode_;
    QPointer<QWidget> view_;
    bool showBackNavigation_;
    BackButtonHandler backButtonHandler_;
    platform::WidgetHandle<QScrollArea> scrollView_;
    QPointer<FormHeadingLayout> headingLayout_; ///< of `view_`, in the mode `stickyHeaders`
    QPointer<FormRowLayout> rowLayout_; ///< of the container of the rows
    Form::Elements renderedElements_;
    Form::Elements titleElements_;
    std::vector<std::shared_ptr<FormButton>> headingButtons_; ///< away from their elements' views
    Labels labels_;
    FormKeyboardLoop keyboardLoop_;
    bool isRendering_ = false;
    platform::TrackedPointer<Form> refusedForm_; ///< was to be rendered during another render
};

} // namespace quor::formkit
