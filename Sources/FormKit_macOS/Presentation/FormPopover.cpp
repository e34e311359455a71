// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Presentation/FormPopover.h"

#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/ScreenFit.h"

#include <QPointer>
#include <QWidget>

namespace quor::formkit {

namespace {

constexpr int screenMargin = 20; // for the arrow and the frame

} // namespace

void FormPopover::show(const QRect& anchor, QWidget& view, platform::RectEdge preferredEdge)
{
    const auto container = std::dynamic_pointer_cast<FormContainerViewController>(contentViewController());
    if (container) {
        using Event = FormContainerViewController::Event;
        container->remove(*this); // of an earlier `show`
        container->add(*this, &FormPopover::followSize, Event::sizeChanged);
        container->add(*this, &FormPopover::closeForForm, Event::close);
        const auto alive = life();
        const QPointer<QWidget> anchorView = &view;
        const QSize wanted = container->view().sizeHint();
        if (alive.expired() || !anchorView)
            return;
        setContentSize(sizeOnScreen(wanted, view, screenMargin));
    }
    Popover::show(anchor, view, preferredEdge);
}

void FormPopover::followSize(FormContainerViewController& container, const std::any&)
{
    QWidget& view = container.view();
    setAnimates(false);
    setContentSize(sizeOnScreen(view.size(), view, screenMargin));
    setAnimates(true);
}

void FormPopover::closeForForm(FormContainerViewController&, const std::any&)
{
    // The delegate may release this popover, and with it the container that is closing.
    const auto content = contentViewController();
    setAnimates(true);
    close();
}

} // namespace quor::formkit
