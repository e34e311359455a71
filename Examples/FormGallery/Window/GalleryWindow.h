// SPDX-License-Identifier: MIT
#pragma once

#include <FormKit_macOS/Presentation/FormServices.h>

#include <QWidget>

class QListWidget;

namespace quor::gallery {

struct Page;
class PageView;

/// The window of the gallery: the list of pages, and beside it the chosen page. Main thread only.
class GalleryWindow final : public QWidget {
    Q_OBJECT

public:
    explicit GalleryWindow(formkit::FormServices services);

    /// `page` is one of `pages`.
    void setPage(const Page& page);

private:
    void showCurrentPage();

    QListWidget* list_; // both are children of this window
    PageView* pageView_;
};

} // namespace quor::gallery
