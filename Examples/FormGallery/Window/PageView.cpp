// SPDX-License-Identifier: MIT
#include "FormGallery/Window/PageView.h"

#include "FormGallery/Page.h"

#include <FormKit_macOS/Presentation/FormContainerViewController.h>
#include <Platform/Concurrency/MainQueue.h>
#include <Platform/Lifetime/WhileAlive.h>

namespace quor::gallery {

using Container = formkit::FormContainerViewController;

PageView::PageView(formkit::FormServices services, QWidget* parent)
    : QWidget(parent)
    , services_(services)
{
}

PageView::~PageView() = default;

void PageView::setPage(const Page& page)
{
    page_ = &page;
    container_
        = std::make_shared<Container>(page.make(services_.appearance.effectiveAppearance()), services_);
    container_->setHasStickyHeaders(page.hasStickyHeaders);
    container_->add(
        *this, [](PageView& view, Container&, const std::any&) { view.fill(); },
        Container::Event::sizeChanged);
    container_->add(
        *this,
        [](PageView& view, Container&, const std::any&) {
            // Not at once, as the container is at work.
            platform::MainQueue::async(
                platform::whileAlive(view, [&view, page = view.page_] { view.setPage(*page); }));
        },
        Container::Event::close);
    container_->view().setParent(this);
    fill();
    container_->view().show();
}

QSize PageView::sizeHint() const
{
    return container_ ? container_->view().sizeHint() : QSize();
}

void PageView::resizeEvent(QResizeEvent*)
{
    fill();
}

// The container gives its view the size that the form needs; here it gets the size that there is.
void PageView::fill()
{
    if (container_)
        container_->view().setGeometry(rect());
}

} // namespace quor::gallery
