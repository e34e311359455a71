// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormWindow.h"

#include "FormKit/Form.h"
#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/ScreenFit.h"

#include <QResizeEvent>

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

QSize FormWindow::wantedSize() const
{
    return sizeOnScreen(container_->view().sizeHint(), *this, screenMargin);
}

void FormWindow::followSize()
{
    const bool isOrdinary = !isMaximized() && !isFullScreen();
    if (isOrdinary && size_.isValid() && !isVisible() && this->size() != size_)
        keepChosen(this->size()); // there was no event for it yet
    const QSize size = wantedSize().boundedTo(mostSize_).expandedTo(leastSize_);
    if (size != size_)
        formerSize_ = std::exchange(size_, size);
    if (isOrdinary)
        resize(size);
    container_->view().setGeometry(rect());
}

void FormWindow::keepChosen(QSize size)
{
    const auto keep = [](int chosen, int wanted, int& least, int& most) {
        least = chosen > wanted ? chosen : 0;
        most = chosen < wanted ? chosen : QWIDGETSIZE_MAX;
    };
    const QSize wanted = wantedSize();
    if (size.width() != size_.width())
        keep(size.width(), wanted.width(), leastSize_.rwidth(), mostSize_.rwidth());
    if (size.height() != size_.height())
        keep(size.height(), wanted.height(), leastSize_.rheight(), mostSize_.rheight());
    formerSize_ = std::exchange(size_, size);
}

void FormWindow::resizeEvent(QResizeEvent* event)
{
    auto* const view = container_->viewIfLoaded();
    if (!view)
        return;
    // A window system can confirm a size only after the next one was asked for.
    const bool isExpected = event->size() == size_ || (event->spontaneous() && event->size() == formerSize_);
    if (!isExpected && !isMaximized() && !isFullScreen())
        keepChosen(event->size());
    view->setGeometry(rect());
}

} // namespace quor::formkit
