// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

namespace quor::formkit {

/// The way of the Tab key through the controls of a form. It also keeps the control with the focus in sight,
/// and the mouse wheel from changing a control that does not have the focus. Main thread only.
class FormKeyboardLoop final : public QObject {
    Q_OBJECT

public:
    using Views = std::vector<QPointer<QWidget>>;
    /// The views of one row, in the order of the loop. Beyond `focusableViews`, all controls in `views` take
    /// part while `platform::isFullKeyboardAccessEnabled`; else these do not accept Tab.
    struct Row {
        Views focusableViews;
        Views views;
    };

    /// Builds the loop again. It begins where `container`, an ancestor of all views, stands in its window.
    void build(QWidget& container, const std::vector<Row>& rows);

    /// The first of all focusable views that can take the focus now, null if there is none.
    [[nodiscard]] QWidget* firstFocusableView() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void collect(QWidget& view, const Views& focusableViews, std::vector<QWidget*>& controls);
    void watch(QWidget& control);

    Views focusableViews_;
};

} // namespace quor::formkit
