// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::helper {

/// A line between groups of rows, from edge to edge, in the middle of the height that the list gives
/// it. Main thread only.
class MenuSeparatorCell final : public QWidget {
    Q_OBJECT

public:
    explicit MenuSeparatorCell(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor::helper
