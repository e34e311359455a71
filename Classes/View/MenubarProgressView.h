// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenubarView.h"

namespace quor::helper {

/// A ring that fills clockwise from the top. Above 1 it is all full, and the part by which it is
/// above is drawn over its end in the warning colour.
class MenubarProgressView final : public MenubarView {
    Q_OBJECT

public:
    struct Colors {
        QColor color;
        std::optional<QColor> backgroundColor; ///< of the full circle below
        QColor warningColor;
    };

    /// `progress` is finite; 1 is a full turn.
    MenubarProgressView(
        double progress, const Colors& colors, double diameter, int tag, QWidget* parent = nullptr);

    void draw(QPainter& painter) const override;

private:
    double progress_;
    Colors colors_;
};

} // namespace quor::helper
