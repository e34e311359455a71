// SPDX-License-Identifier: MIT
#pragma once

#include <QSizeF>

class QPainter;

namespace quor::helper {

/// One thing that the status item shows: a symbol, a text, or a stack of them. A plain drawing object,
/// no widget: it knows how large it wants to be and how to draw itself.
class MenubarElement {
public:
    /// `tag` is `CutoutTag` for an element that is punched out of the pill, or `LiveTag` for one that is
    /// drawn above the pill in its own colours.
    explicit MenubarElement(int tag)
        : tag_(tag)
    {
    }
    virtual ~MenubarElement() = default;
    MenubarElement(const MenubarElement&) = delete;
    MenubarElement& operator=(const MenubarElement&) = delete;

    [[nodiscard]] int tag() const { return tag_; }

    /// The size that the element wants, in device-independent pixels.
    [[nodiscard]] virtual QSizeF fittingSize() const = 0;

    /// Draws the element in a frame of `size`, whose upper left corner is the painter's origin. May leave
    /// any painter state behind.
    virtual void draw(QPainter& painter, QSizeF size) const = 0;

private:
    int tag_;
};

} // namespace quor::helper
