// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormWindow.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/ScreenFit.h"

#include <utility>

namespace quor::formkit {

namespace {

constexpr int screenMargin = 32; // for the title bar

} // namespace

FormWindow::FormWindow(std::shared_ptr<FormContainerViewController> container)
    : container_(std::move(container))
{
    using Container = FormContainerViewController;
    using Event = Container::Event;
    container_->add(
        *this, [](FormWindow& window, Container&, const std::any&) { window.followSize(); },
        Event::sizeChanged);
    container_->add(
        *this, [](FormWindow& window, Container&, const std::any&) { window.close(); }, Event::close);
    setWindowTitle(container_->form()->title().value_or(QString()));
    container_->view().setParent(this);
    container_->view().show();
    followSize();
}

FormWindow::~FormWindow()
{
    container_->remove(*this);
    // The views are the controller's own, and it may be shown again.
    if (auto* view = container_->viewIfLoaded(); view && view->parentWidget() == this)
        view->setParent(nullptr);
}

void FormWindow::followSize()
{
    if (!isMaximized() && !isFullScreen())
        resize(sizeOnScreen(container_->view().sizeHint(), *this, screenMargin));
    container_->view().setGeometry(rect());
}

void FormWindow::resizeEvent(QResizeEvent*)
{
    if (auto* view = container_->viewIfLoaded())
        view->setGeometry(rect());
}

} // namespace quor::formkit
