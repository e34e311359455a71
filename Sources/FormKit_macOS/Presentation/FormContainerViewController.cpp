// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormContainerViewController.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Presentation/BackNavigation.h"
#include "FormKit_macOS/Presentation/FormContainerViewControllerPresentationAnimator.h"
#include "FormKit_macOS/Presentation/FormRenderViewController.h"
#include "FormKit_macOS/Presentation/ViewAppearance.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit_macOS/FlippedView.h"

#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace quor::formkit {

namespace {

// Its children are as large as it, and it is as large as the topmost one wants to be.
class ContainerView final : public toolkit::FlippedView {
public:
    explicit ContainerView(const FormContainerViewController& controller)
        : controller_(&controller)
    {
    }

    QSize sizeHint() const override
    {
        const auto* top = topView();
        return top ? top->sizeHint() : QSize(0, 0);
    }

protected:
    void resizeEvent(QResizeEvent*) override
    {
        for (auto* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!child->isWindow()) // popovers are children, too
                child->resize(size());
        }
    }
    // A view that slides out lets presses through, and a popover would take them as a wish to move it.
    void mousePressEvent(QMouseEvent* event) override
    {
        const auto* top = topView();
        event->setAccepted(top && top->pos() != QPoint(0, 0));
    }

private:
    const QWidget* topView() const
    {
        if (!controller_ || controller_->formRenderViewControllers().empty())
            return nullptr;
        return controller_->formRenderViewControllers().back()->viewIfLoaded();
    }

    QPointer<const FormContainerViewController> controller_;
};

} // namespace

FormContainerViewController::FormContainerViewController(std::shared_ptr<Form> form, FormServices services)
    : services_(services)
    , appearanceMode_(services.appearance)
    , rootViewController_(std::make_shared<FormRenderViewController>(std::move(form), false, services))
{
}

FormContainerViewController::~FormContainerViewController() = default;

const std::shared_ptr<Form>& FormContainerViewController::form() const
{
    return (formRenderViewControllers_.empty() ? rootViewController_ : formRenderViewControllers_.back())
        ->form();
}

void FormContainerViewController::setHasStickyHeaders(bool hasStickyHeaders)
{
    hasStickyHeaders_ = hasStickyHeaders;
    const auto controllers = formRenderViewControllers_;
    for (const auto& controller : controllers) {
        controller->setHasStickyHeaders(hasStickyHeaders);
        controller->form()->setNeedsRender(true);
    }
}

void FormContainerViewController::setNeedsEffectView(bool needsEffectView)
{
    needsEffectView_ = needsEffectView;
    const auto controllers = formRenderViewControllers_;
    for (const auto& controller : controllers) {
        controller->setNeedsEffectView(needsEffectView);
        controller->form()->setNeedsRender(true);
    }
}

std::unique_ptr<QWidget> FormContainerViewController::loadView()
{
    return std::make_unique<ContainerView>(*this);
}

void FormContainerViewController::viewDidLoad()
{
    appearanceMode_.remove(*this);
    appearanceMode_.add(
        *this,
        [](FormContainerViewController& container, toolkit::AppearanceMode& mode, const std::any&) {
            applyAppearance(container.view(), mode);
        },
        toolkit::AppearanceModeEvent::changed);
    if (formRenderViewControllers_.empty()) {
        push(rootViewController_);
        return;
    }
    // A parent has deleted the view before.
    placeChild(formRenderViewControllers_.back(), *this);
    formRenderViewControllers_.back()->view().show();
    followStack();
    view().resize(view().sizeHint());
}

void FormContainerViewController::viewWillAppear()
{
    applyAppearance(view(), appearanceMode_);
}

void FormContainerViewController::push(std::shared_ptr<FormRenderViewController> controller)
{
    const auto alive = life();
    (void)view(); // the first call pushes the root
    slide_.finish();
    const auto isPresent = [&](const auto& present) { return present == controller; };
    if (alive.expired() || !controller || std::ranges::any_of(formRenderViewControllers_, isPresent))
        return;
    const auto previous = formRenderViewControllers_.empty() ? nullptr : formRenderViewControllers_.back();
    formRenderViewControllers_.push_back(controller);
    configure(*controller);
    listenTo(*controller);
    if (!previous) {
        placeChild(controller, *this);
        controller->view().show();
        view().resize(view().sizeHint());
        return;
    }
    followStack();
    const bool hadFocus = previous->rememberFocus();
    const auto updateSizeIfAlive = platform::whileAlive(*this, [this] { updateSize(); });
    auto animator
        = std::make_unique<FormContainerViewControllerPresentationAnimator>(slide_, services_.appearance);
    animator->previousController = previous;
    animator->presentSizeUpdate = updateSizeIfAlive;
    animator->dismissSizeUpdate = updateSizeIfAlive;
    present(controller, std::move(animator));
    if (hadFocus)
        controller->takeFocus();
}

void FormContainerViewController::configure(FormRenderViewController& controller) const
{
    controller.setNeedsEffectView(needsEffectView_);
    controller.form()->setNeedsRender(true);
    controller.setHasStickyHeaders(hasStickyHeaders_);
    controller.form()->setNeedsRender(true);
}

void FormContainerViewController::listenTo(FormRenderViewController& controller)
{
    const auto add = [&](auto operation, FormRenderEvent event) {
        controller.add(
            *this,
            [operation](FormContainerViewController& container, FormRenderViewController&,
                const std::any& payload) { operation(container, payload); },
            event);
    };
    add([](auto& container, const std::any& payload) { container.close(payload); }, FormRenderEvent::close);
    add([](auto& container, const std::any&) { container.updateSize(); }, FormRenderEvent::sizeChanged);
    add([](auto& container, const std::any& payload) { container.showForm(payload); },
        FormRenderEvent::showForm);
    add([](auto& container, const std::any& payload) { container.pop(payload); }, FormRenderEvent::back);
}

void FormContainerViewController::followStack()
{
    if (formRenderViewControllers_.size() < 2)
        backNavigation_.reset();
    else
        backNavigation_
            = std::make_unique<BackNavigation>(view(), platform::whileAlive(*this, [this] { pop(); }));
}

void FormContainerViewController::showForm(const std::any& payload)
{
    const auto* form = std::any_cast<std::shared_ptr<Form>>(&payload);
    if (form && *form)
        push(std::make_shared<FormRenderViewController>(*form, true, services_));
}

void FormContainerViewController::pop(const std::any& payload)
{
    const auto alive = life();
    slide_.finish();
    if (alive.expired())
        return;
    if (formRenderViewControllers_.size() < 2) {
        trigger(Event::close, payload);
        return;
    }
    const auto popped = std::exchange(formRenderViewControllers_.back(), nullptr);
    formRenderViewControllers_.pop_back();
    popped->remove(*this); // what it still triggers concerns this container no longer
    const auto shown = formRenderViewControllers_.back();
    followStack();
    const bool hadFocus = popped->rememberFocus();
    dismiss(*popped);
    if (!alive.expired() && hadFocus)
        shown->takeFocus();
}

void FormContainerViewController::close(const std::any& payload)
{
    const auto alive = life();
    formWillClose(payload);
    if (alive.expired())
        return;
    const auto* controller = std::any_cast<std::shared_ptr<FormRenderViewController>>(&payload);
    if (controller && formRenderViewControllers_.size() >= 2
        && *controller == formRenderViewControllers_.back())
        pop(payload);
    else
        trigger(Event::close);
}

void FormContainerViewController::formWillClose(const std::any&) { }

void FormContainerViewController::updateSize()
{
    if (slide_.isRunning())
        return;
    if (auto* view = viewIfLoaded()) {
        view->updateGeometry();
        view->resize(view->sizeHint());
    }
    trigger(Event::sizeChanged);
}

} // namespace quor::formkit
