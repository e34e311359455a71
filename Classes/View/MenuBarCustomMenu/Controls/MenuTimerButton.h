// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenuBarCustomMenu/Controls/MenuButton.h"

namespace quor::helper {

/// A small button of a timer row. Tab gives it the keyboard, a click does not; space and Return press it. A
/// title that is too wide ends in an ellipsis. Main thread only.
class MenuTimerButton final : public MenuButton {
    Q_OBJECT

public:
    enum class Bezel { roundRect, regularSquare };

    /// `tag` is the number of minutes that the button stands for.
    MenuTimerButton(int tag, const QString& title, QWidget* parent);

    [[nodiscard]] int tag() const { return tag_; }
    [[nodiscard]] const QString& title() const { return title_; }
    /// An ampersand is shown as such and makes no keyboard short cut.
    void setTitle(const QString& title);
    void setBezel(Bezel bezel);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] int padding() const;

    int tag_;
    QString title_;
    Bezel bezel_ = Bezel::roundRect;
};

} // namespace quor::helper
