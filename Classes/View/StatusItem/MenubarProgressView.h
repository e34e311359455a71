// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarView.h"

namespace quor::helper {

/// A ring that fills clockwise from the top. Above 1 it is all full, and the part by which it is
/// above is drawn over its end in the warning colour.
class MenubarProgressView final : public MenubarView {
    Q_OBJECT

public:
    struct Ring {
        double progress = 0; ///< finite; 1 is a full turn
        QColor color;
        std::optional<QColor> backgroundColor; ///< of the full circle below
        QColor warningColor;
        friend bool operator==(const Ring&, const Ring&) = default;
    };

    using MenubarView::MenubarView;

    void setRing(const Ring& ring);

    void draw(QPainter& painter) const override;

private:
    Ring ring_;
};

} // namespace quor::helper
