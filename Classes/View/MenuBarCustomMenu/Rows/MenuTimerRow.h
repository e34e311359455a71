// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenuBarCustomMenu/Controls/MenuTextField.h"
#include "View/MenuBarCustomMenu/Controls/MenuTimerButton.h"

#include <QWidget>

#include <vector>

class QHBoxLayout;

namespace quor::helper {

/// Base of the rows that adjust a timer: a dimmed label above a row of small buttons, each of which stands
/// for a number of minutes.
///
/// Tab gives a button the keyboard, a click does not. The table around must not take the focus on a click
/// either (Qt::TabFocus), so that the search field keeps the caret. On a focused button, Left and Right go
/// to its neighbours; Up and Down give the keyboard to the table, which then handles the key. Main thread
/// only.
class MenuTimerRow : public QWidget {
    Q_OBJECT

public:
    [[nodiscard]] MenuTextField& labelField() { return labelField_; }
    [[nodiscard]] const std::vector<MenuTimerButton*>& buttons() const { return buttons_; }

    /// Names the task that the buttons are for. If it changes while a button is pressed, the release of that
    /// button clicks nothing.
    void setTaskID(const QString& taskID);

    /// Called for each click on one of the buttons.
    virtual void buttonClicked(const MenuTimerButton& button) = 0;

protected:
    static constexpr int delimiter = -9999; ///< tag of a line between groups of buttons
    static constexpr int spacer = -8888; ///< tag of a space that takes up the free width

    struct Item {
        int tag = 0; ///< minutes of a button, or one of the two above
        QString title;
    };

    explicit MenuTimerRow(QWidget* parent);

    /// Adds buttons, delimiters and spacers from left to right.
    void addItems(const std::vector<Item>& items);

    void setLabel(const QString& text);

    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addButton(const Item& item);
    void applyFonts();
    void focusNeighbour(int offset);
    void yieldFocus();

    QString taskID_;
    MenuTextField labelField_;
    QHBoxLayout* buttonStackView_ = nullptr; ///< owned by this widget's layout
    std::vector<MenuTimerButton*> buttons_; ///< owned by this widget
    std::vector<MenuTextField*> delimiters_; ///< owned by this widget
};

} // namespace quor::helper
