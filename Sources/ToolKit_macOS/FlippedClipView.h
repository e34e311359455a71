// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quor::toolkit {

/// The viewport of a scrolling view, for `QAbstractScrollArea::setViewport`: a content lower than the
/// viewport lies at the top. Every widget clips its children and has its origin in the upper left corner, so
/// this class adds only its name. Main thread only.
class FlippedClipView : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    [[nodiscard]] bool isFlipped() const { return true; }
};

} // namespace quor::toolkit
