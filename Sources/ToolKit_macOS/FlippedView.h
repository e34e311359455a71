// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::toolkit {

/// A plain container with its origin in the upper left corner, for rows that are laid out from the top. As
/// every widget has its origin there, this class adds only its name. Main thread only.
class FlippedView : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    [[nodiscard]] bool isFlipped() const { return true; }
};

} // namespace quor::toolkit
