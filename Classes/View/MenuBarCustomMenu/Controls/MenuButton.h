// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace quor::helper {

/// Base of the buttons in a row of the menu. Has the text colour of its row, also while the row is selected.
/// If it is hidden while it is pressed, the release does not click it. Main thread only.
class MenuButton : public QAbstractButton {
    Q_OBJECT

public:
    /// If the button is pressed, its release will not click it: to be called when the row shows something
    /// else, which the user did not press.
    void cancelPress();

protected:
    explicit MenuButton(QWidget* parent);

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool isPressCancelled_ = false;
};

} // namespace quor::helper
