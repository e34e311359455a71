// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::helper {

/// A horizontal line between groups of rows, as wide as the cell and vertically centred. Main thread only.
class MenuSeparatorCell final : public QWidget {
    Q_OBJECT

public:
    explicit MenuSeparatorCell(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor::helper
