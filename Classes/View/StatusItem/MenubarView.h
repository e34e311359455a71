// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarElement.h"

#include <QColor>

namespace quor::helper {

/// A square symbol: a solid disc in the background colour, or what a derived class draws.
class MenubarView : public MenubarElement {
public:
    /// `diameter` is the side of the square, in device-independent pixels.
    MenubarView(double diameter, int tag)
        : MenubarElement(tag)
        , diameter_(diameter)
    {
    }

    void setBackground(const QColor& color) { background_ = color; }

    [[nodiscard]] QSizeF fittingSize() const override { return {diameter_, diameter_}; }
    void draw(QPainter& painter, QSizeF size) const override;

private:
    double diameter_;
    QColor background_;
};

} // namespace quor::helper
