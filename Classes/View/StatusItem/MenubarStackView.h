// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarElement.h"

#include <QMarginsF>
#include <Qt>

#include <optional>
#include <vector>

namespace quor::helper {

/// Elements in a row, each in the middle of its height, or in a column with their leading edges aligned.
/// Borrows the elements, which must outlive it or its next `clear`.
class MenubarStackView final : public MenubarElement {
public:
    /// `spacing` is the room between two elements, in device-independent pixels; below 0 they overlap.
    MenubarStackView(Qt::Orientation orientation, int tag, double spacing, const QMarginsF& edgeInsets);

    void clear() { subviews_.clear(); }

    /// Appends an element. `spacingAfter` replaces the stack's spacing between it and the next one.
    void addArrangedSubview(const MenubarElement& element, std::optional<double> spacingAfter = std::nullopt);
    /// Adds an element that takes no room of its own: it lies over the middle of the element added last.
    void addSubview(const MenubarElement& element);

    [[nodiscard]] QSizeF fittingSize() const override;

    /// Draws the elements that bear the stack's own tag.
    void draw(QPainter& painter, QSizeF size) const override { drawTagged(painter, size, tag()); }
    /// Draws the elements that bear `tag`, each in its place in a frame of `size`.
    void drawTagged(QPainter& painter, QSizeF size, int tag) const;

private:
    struct Subview {
        const MenubarElement* element;
        double spacingAfter;
        bool isArranged;
    };

    Qt::Orientation orientation_;
    double spacing_;
    QMarginsF insets_;
    std::vector<Subview> subviews_;
};

} // namespace quor::helper
