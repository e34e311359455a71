// SPDX-License-Identifier: MIT
#pragma once

#include <FormKit_macOS/Presentation/FormServices.h>

#include <QWidget>

#include <memory>

namespace quor::formkit {
class FormContainerViewController;
}

namespace quor::gallery {

struct Page;

/// Shows one page. Its form takes the whole widget, and is scrolled if it needs more than that. A form that
/// asks to be closed begins again, as a page has nowhere to go. Main thread only.
class PageView final : public QWidget {
    Q_OBJECT

public:
    explicit PageView(formkit::FormServices services, QWidget* parent = nullptr);
    ~PageView() override;

    /// Makes the form of `page`, which must outlive this object, and shows it.
    void setPage(const Page& page);

    /// The size that the form needs.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fill();

    formkit::FormServices services_;
    const Page* page_ = nullptr;
    std::shared_ptr<formkit::FormContainerViewController> container_;
};

} // namespace quor::gallery
