// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace quor::helper {

/// A small button of a timer row. Reached by Tab, pressed by space or Return as well, and never
/// focused by a click. Its title is cut where the room is short. Main thread only.
class MenuTimerButton final : public QAbstractButton {
    Q_OBJECT

public:
    enum class Bezel { roundRect, regularSquare };

    /// `tag`: minutes.
    MenuTimerButton(int tag, const QString& title, QWidget* parent);

    [[nodiscard]] int tag() const { return tag_; }
    [[nodiscard]] const QString& title() const { return title_; }
    /// An ampersand is one, and no short cut.
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
