// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollBar>

namespace quor::helper {

/// The scroll bar of the menu: a slim handle on the menu's background, without a groove. Main thread only.
class MenuScrollBar final : public QScrollBar {
    Q_OBJECT

public:
    explicit MenuScrollBar(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor::helper
