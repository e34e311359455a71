// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <memory>

namespace quor::formkit {

class FormContainerViewController;

/// A window that shows a container of forms: it takes the size that the top form needs, as far as the screen
/// has it, and closes when a form or the Escape key asks for it.
///
///     FormWindow window(std::make_shared<FormContainerViewController>(form, services));
///     window.show();
///
/// The user may resize it, until the form needs another size. Main thread only.
class FormWindow : public QWidget {
    Q_OBJECT

public:
    /// Titled as the root form. `container` must not be null, and is shared.
    explicit FormWindow(std::shared_ptr<FormContainerViewController> container);
    ~FormWindow() override;

    [[nodiscard]] FormContainerViewController& container() const { return *container_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void followSize();

    std::shared_ptr<FormContainerViewController> container_;
};

} // namespace quor::formkit
