// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::toolkit {

/// The window onto a larger view, for `QAbstractScrollArea::setViewport`. A widget clips its children
/// and its y axis points down already, so there is nothing to turn: an area that is shorter than its
/// window lies at the top. Main thread only.
class FlippedClipView : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    [[nodiscard]] bool isFlipped() const { return true; }
};

} // namespace quor::toolkit
