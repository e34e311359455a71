// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenubarElement.h"

#include <QColor>

#include <optional>

namespace quor::helper {

/// A square element, as large as the status item's text is high: a solid disc where it has a
/// background, or what a derived class draws.
class MenubarView : public MenubarElement {
    Q_OBJECT

public:
    explicit MenubarView(int tag, QWidget* parent = nullptr);

    /// The side of every such element, in device-independent pixels.
    [[nodiscard]] static double diameter();

    void setBackground(const QColor& color) { background_ = color; }

    [[nodiscard]] QSizeF fittingSize() const override;
    void draw(QPainter& painter) const override;

private:
    std::optional<QColor> background_;
};

} // namespace quor::helper
