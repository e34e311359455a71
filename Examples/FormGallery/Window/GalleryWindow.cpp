// SPDX-License-Identifier: MIT
#include "FormGallery/Window/GalleryWindow.h"

#include "FormGallery/Page.h"
#include "FormGallery/Texts.h"
#include "FormGallery/Window/PageView.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QListWidget>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::gallery {

namespace {

constexpr QSize windowSize(780, 560);
constexpr QSize smallestPage(320, 240); // in which a form can be scrolled and read

} // namespace

GalleryWindow::GalleryWindow(formkit::FormServices services)
    : list_(new QListWidget(this))
    , pageView_(new PageView(services, this))
{
    setWindowTitle(text(u"WindowTitle"_s));
    list_->setAccessibleName(text(u"WindowPages"_s));
    list_->setFrameShape(QFrame::NoFrame);
    for (const Page& page : pages())
        list_->addItem(text(page.titleKey));
    const int scrollBar = list_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list_);
    list_->setFixedWidth(
        list_->sizeHintForColumn(0) + 2 * list_->fontMetrics().averageCharWidth() + scrollBar);
    pageView_->setMinimumSize(smallestPage);
    connect(list_, &QListWidget::currentRowChanged, this, &GalleryWindow::showCurrentPage);

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(list_);
    layout->addWidget(pageView_, 1);
    list_->setCurrentRow(0);
    resize(windowSize);
}

void GalleryWindow::setPage(const Page& page)
{
    const auto found = std::ranges::find(pages(), &page, [](const Page& other) { return &other; });
    list_->setCurrentRow(int(found - pages().begin()));
}

void GalleryWindow::showCurrentPage()
{
    if (const int row = list_->currentRow(); row >= 0)
        pageView_->setPage(pages()[std::size_t(row)]);
}

} // namespace quor::gallery
