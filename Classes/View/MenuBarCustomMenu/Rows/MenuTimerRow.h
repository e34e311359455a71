// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenuBarCustomMenu/Controls/MenuTextField.h"
#include "View/MenuBarCustomMenu/Controls/MenuTimerButton.h"

#include <QWidget>

#include <vector>

class QHBoxLayout;

namespace quor::helper {

/// What the rows that move a timer have in common: a dimmed label above a row of small buttons, each
/// for a number of minutes.
///
/// The buttons are reached by Tab and take no focus on a click; so that a click does not take the
/// caret from the search field, the table around must not take focus on a click either (Qt::TabFocus).
/// On a focused button left and right go to its neighbours; up and down give the keyboard back to the
/// table, and go to it. `sizeHint()` is the fitting size. Main thread only.
class MenuTimerRow : public QWidget {
    Q_OBJECT

public:
    [[nodiscard]] MenuTextField& labelField() { return labelField_; }
    [[nodiscard]] const std::vector<MenuTimerButton*>& buttons() const { return buttons_; }

    /// What a click on one of them does.
    virtual void buttonClicked(const MenuTimerButton& button) = 0;

protected:
    static constexpr int delimiter = -9999; ///< tag of a line between groups of buttons
    static constexpr int spacer = -8888; ///< tag of the free room

    struct Item {
        int tag = 0; ///< minutes
        QString title;
    };

    explicit MenuTimerRow(QWidget* parent);

    void addItems(const std::vector<Item>& items);

    void setLabel(const QString& text);

    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addButton(const Item& item);
    void applyFonts();
    void focusNeighbour(int by);
    void yieldFocus();

    MenuTextField labelField_;
    QHBoxLayout* buttonStackView_ = nullptr; ///< owned by this widget's layout
    std::vector<MenuTimerButton*> buttons_; ///< this widget's children, as are the delimiters
    std::vector<MenuTextField*> delimiters_;
};

} // namespace quor::helper
