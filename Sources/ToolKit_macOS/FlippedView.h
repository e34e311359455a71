// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::toolkit {

/// A plain container whose rows run from the top down. A widget's y axis points down already, so
/// there is nothing to turn: the name tells what the kit's users rely on. Main thread only.
class FlippedView : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    [[nodiscard]] bool isFlipped() const { return true; }
};

} // namespace quor::toolkit
