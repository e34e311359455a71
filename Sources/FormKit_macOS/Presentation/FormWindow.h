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
/// A width or height that the user has chosen stays. If it is more than the form needed then, the window
/// still grows with the form; if it is less, the form is scrolled. The same holds for a size that was set
/// from code, such as that of an earlier session. Main thread only.
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
    [[nodiscard]] QSize wantedSize() const;
    void followSize();
    void keepChosen(QSize size);

    std::shared_ptr<FormContainerViewController> container_;
    QSize leastSize_{0, 0}; ///< chosen larger than the form wanted
    QSize mostSize_{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX}; ///< chosen smaller than the form wanted
    QSize size_; ///< the last one that was followed or chosen
    QSize formerSize_; ///< the one before
};

} // namespace quor::formkit
