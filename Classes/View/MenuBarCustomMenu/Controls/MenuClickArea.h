// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace quor::helper {

/// A button that shows nothing and turns what lies below it into one target for clicks. Never takes
/// the focus itself. Main thread only.
class MenuClickArea final : public QAbstractButton {
    Q_OBJECT

public:
    explicit MenuClickArea(QWidget* parent = nullptr);

    /// A press that was not released yet comes to nothing.
    void forgetPress();

protected:
    void paintEvent(QPaintEvent* event) override; ///< nothing
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    bool isPressForgotten_ = false;
};

} // namespace quor::helper
