// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarElement.h"

#include <QColor>

#include <optional>

namespace quor::helper {

/// A square element: a solid disc where it has a background, or what a derived class draws.
class MenubarView : public MenubarElement {
    Q_OBJECT

public:
    /// `diameter` is its side, in device-independent pixels.
    MenubarView(double diameter, int tag, QWidget* parent = nullptr);

    void setBackground(const QColor& color);

    [[nodiscard]] QSizeF fittingSize() const override { return {diameter_, diameter_}; }
    void draw(QPainter& painter) const override;

private:
    double diameter_;
    std::optional<QColor> background_;
};

} // namespace quor::helper
