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
    /// Creates the label, the buttons "-30", "-10", "-5" and "-1", a delimiter, and the button "+5".
    explicit MenuTimerRow(QWidget* parent);

    // Each of these adds an item at the end of the row of buttons.
    MenuTimerButton& addButton(int minutes, const QString& title);
    void addDelimiter();
    void addSpace(); ///< takes up the free width

    void setLabel(const QString& text);

    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void focusNeighbour(int offset);
    void yieldFocus();

    QString taskID_;
    MenuTextField labelField_;
    QHBoxLayout* buttonStackView_ = nullptr; ///< owned by this widget's layout
    std::vector<MenuTimerButton*> buttons_; ///< owned by this widget
    std::vector<MenuTextField*> delimiters_; ///< owned by this widget
};

} // namespace quor::helper
