// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarView.h"
#include "View/StatusItem/StatusItemPlan.h"

namespace quor::helper {

/// A ring that fills clockwise from the top. With a progress above 1 the ring is full, and the over-time
/// share of the turn is drawn over its end in the warning colour.
class MenubarProgressView final : public MenubarView {
public:
    using MenubarView::MenubarView;

    void setRing(const StatusItemPlan::Ring& ring, const QColor& warningColor);

    void draw(QPainter& painter, QSizeF size) const override;

private:
    StatusItemPlan::Ring ring_;
    QColor warningColor_;
};

} // namespace quor::helper
