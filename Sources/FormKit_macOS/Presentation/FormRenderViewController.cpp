// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormRenderViewController.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/Presentation/DefaultButton.h"
#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/FormView.h"
#include "FormKit_macOS/Presentation/InputAnchor.h"
#include "FormKit_macOS/Presentation/ViewAppearance.h"
#include "FormKit_macOS/Rendering/FormViewRenderer.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit_macOS/FlippedEffectView.h"
#include "ToolKit_macOS/FlippedView.h"

#include <QDesktopServices>
#include <QScrollBar>
#include <QUrl>

#include <utility>

namespace quor::formkit {

namespace {

constexpr double renderDelay = 0.1; // seconds

// Returns the value of a payload that is of exactly this type, else a default.
template <class T>
T valueOf(const std::any& payload)
{
    const auto* value = std::any_cast<T>(&payload);
    return value ? *value : T();
}

QPushButton* pushButtonOf(const FormElement* element)
{
    const auto* button = dynamic_cast<const FormButton*>(element);
    return button ? button->button() : nullptr;
}

} // namespace

FormRenderViewController::FormRenderViewController(
    std::shared_ptr<Form> form, bool showBackNavigation, FormServices services)
    : FormPopoverViewController(services)
    , form_(std::move(form))
    , appearanceMode_(services.appearance)
    , showBackNavigation_(showBackNavigation)
{
    form_->setNeedsRender(true);
    listenToForm();
    appearanceMode_.add(
        *this,
        [](FormRenderViewController& controller, toolkit::AppearanceMode&, const std::any&) {
            controller.followAppearance();
        },
        toolkit::AppearanceModeEvent::changed);
}

FormRenderViewController::~FormRenderViewController()
{
    form_->remove(*this);
}

void FormRenderViewController::listenToForm()
{
    const auto add = [this](auto reaction, FormEvent event, double delay) {
        form_->add(
            *this,
            [reaction](FormRenderViewController& controller, Form& sender, const std::any& payload) {
                if (&sender == controller.form_.get()) // not a late event of a form that was replaced
                    reaction(controller, payload);
            },
            event, delay);
    };
    using Self = FormRenderViewController;
    using Payload = const std::any&;
    add([](Self& self, Payload payload) { self.trigger(Event::showForm, payload); }, FormEvent::showForm, 0);
    add([](Self& self, Payload payload) { self.replaceForm(payload); }, FormEvent::replaceForm, 0);
    add([](Self& self, Payload) { self.renderAnew(); }, FormEvent::internalNeedsRender, renderDelay);
    add([](Self& self, Payload payload) { self.trigger(Event::close, payload); }, FormEvent::close, 0);
    add(
        [](Self&, Payload payload) {
            if (const auto url = valueOf<QUrl>(payload); url.isValid())
                QDesktopServices::openUrl(url);
        },
        FormEvent::showLink, 0);
    add([](Self& self, Payload payload) { self.presentForm(payload); }, FormEvent::presentForm, 0);
}

void FormRenderViewController::setHasStickyHeaders(bool hasStickyHeaders)
{
    isContentOutdated_ = isContentOutdated_ || hasStickyHeaders_ != hasStickyHeaders;
    hasStickyHeaders_ = hasStickyHeaders;
}

void FormRenderViewController::setNeedsEffectView(bool needsEffectView)
{
    isContentOutdated_ = isContentOutdated_ || needsEffectView_ != needsEffectView;
    needsEffectView_ = needsEffectView;
}

FormView& FormRenderViewController::formView()
{
    return static_cast<FormView&>(view()); // see loadView
}

std::unique_ptr<QWidget> FormRenderViewController::loadView()
{
    return std::make_unique<FormView>();
}

void FormRenderViewController::viewDidLoad()
{
    inputAnchor_ = new InputAnchor(view());
    defaultButton_ = new DefaultButton(view());
    defaultButton_->willPress = platform::whileAlive(*this, [this](QWidget& button) {
        if (inputAnchor_)
            inputAnchor_->setView(&button);
    });
    makeContent();
    if (!form_->needsRender())
        form_->setNeedsRender(true); // a parent has deleted the view that was rendered
    formRenderer_->render(*form_);
    formView().updateContentSize(form_->width());
    view().resize(view().sizeHint());
}

void FormRenderViewController::makeContent()
{
    formRenderer_.reset(); // takes the views of the elements out of the content that ends now
    isContentOutdated_ = false;
    std::unique_ptr<QWidget> content;
    if (needsEffectView_)
        content = std::make_unique<toolkit::FlippedEffectView>();
    else
        content = std::make_unique<toolkit::FlippedView>();
    using RenderMode = FormViewRenderer::RenderMode;
    formRenderer_ = std::make_unique<FormViewRenderer>(
        hasStickyHeaders_ ? RenderMode::stickyHeaders : RenderMode::normal, *content, showBackNavigation_);
    if (showBackNavigation_)
        formRenderer_->setBackButtonHandler(platform::whileAlive(*this, [this] { trigger(Event::back); }));
    formView().setContent(std::move(content));
    followAppearance();
}

void FormRenderViewController::viewWillAppear()
{
    const auto alive = life();
    followAppearance();
    const auto form = form_;
    form->prepareForDisplay();
    // Not later, or the user would see for a moment what the form has just replaced.
    if (!alive.expired() && form_->needsRender())
        renderAnew();
    if (alive.expired())
        return;
    // Qt gives the keyboard to some view of a window where no view has it. Here, it also has to press the
    // default button.
    const auto* window = view().window();
    if (const auto* focused = window->focusWidget(); !focused || focused == window)
        view().setFocus();
}

void FormRenderViewController::viewDidAppear()
{
    if (platform::Popover::isWindowOfPopover(*view().window()) || focusedInput())
        return;
    if (auto* input = firstInput())
        input->setFocus(Qt::TabFocusReason);
}

void FormRenderViewController::viewDidLayout()
{
    if (defaultButton_)
        defaultButton_->setButton(form_->defaultButton(), pushButtonOf(form_->defaultButton().get()));
}

bool FormRenderViewController::cancelOperation()
{
    trigger(Event::close);
    return true;
}

void FormRenderViewController::popoverClosed(platform::ViewController&)
{
    const auto alive = life();
    const auto form = form_;
    form->prepareForDisplay();
    if (!alive.expired())
        renderAnew();
}

void FormRenderViewController::renderAnew()
{
    const auto alive = life();
    if (viewIfLoaded()) {
        if (isContentOutdated_ && form_->needsRender())
            makeContent();
        const auto form = form_;
        const bool hadFocus = focusedInput() != nullptr;
        formRenderer_->render(*form);
        if (alive.expired())
            return;
        if (hadFocus && !view().window()->focusWidget()) // its row has gone, but Escape must reach the form
            view().setFocus();
        formView().updateContentSize(form_->width());
        if (!parentController()) // a parent decides on the size, and when it changes
            view().resize(view().sizeHint());
        viewDidLayout();
    }
    trigger(Event::sizeChanged);
}

void FormRenderViewController::replaceForm(const std::any& payload)
{
    const auto next = valueOf<std::shared_ptr<Form>>(payload);
    if (!next)
        return;
    const auto alive = life();
    const bool hadFocus = focusedInput();
    form_->remove(*this);
    const auto replaced = std::exchange(form_, next);
    rememberedFocus_ = nullptr;
    next->setNeedsRender(true);
    if (alive.expired())
        return;
    listenToForm();
    if (viewIfLoaded())
        formView().verticalScrollBar()->setValue(0);
    renderAnew();
    if (alive.expired())
        return;
    if (hadFocus)
        takeFocus();
    next->prepareForDisplay();
}

void FormRenderViewController::presentForm(const std::any& payload)
{
    auto controller = valueOf<std::shared_ptr<platform::ViewController>>(payload);
    if (const auto form = valueOf<std::shared_ptr<Form>>(payload))
        controller = std::make_shared<FormContainerViewController>(form, services());
    if (controller && inputAnchor_)
        present(std::move(controller), inputAnchor_->view(), false, platform::RectEdge::maxY);
}

void FormRenderViewController::followAppearance()
{
    if (!viewIfLoaded())
        return;
    if (auto* content = qobject_cast<toolkit::FlippedEffectView*>(formView().widget()))
        applyAppearance(*content, appearanceMode_);
}

QWidget* FormRenderViewController::firstInput() const
{
    return formRenderer_ ? formRenderer_->firstFocusableView() : nullptr;
}

QWidget* FormRenderViewController::focusedInput() const
{
    const auto* view = viewIfLoaded();
    auto* focused = view ? view->window()->focusWidget() : nullptr;
    return focused && focused != view && view->isAncestorOf(focused) ? focused : nullptr;
}

bool FormRenderViewController::rememberFocus()
{
    rememberedFocus_ = focusedInput();
    const auto* view = viewIfLoaded();
    if (!view)
        return false;
    const auto* focused = view->window()->focusWidget();
    return rememberedFocus_ || !focused || focused == view;
}

void FormRenderViewController::takeFocus()
{
    auto* remembered = std::exchange(rememberedFocus_, nullptr).data();
    if (remembered && view().isAncestorOf(remembered) && remembered->isVisibleTo(&view())
        && remembered->isEnabled())
        remembered->setFocus();
    else if (auto* input = firstInput(); input && !platform::Popover::isWindowOfPopover(*view().window()))
        input->setFocus(Qt::TabFocusReason);
    else
        view().setFocus();
}

} // namespace quor::formkit
