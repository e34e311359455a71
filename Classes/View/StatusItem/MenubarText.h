// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarElement.h"
#include "View/StatusItem/StatusItemStyle.h"

#include <QString>

#include <algorithm>
#include <limits>

namespace quor::helper {

/// One line of white text, left aligned, clipped at the end of its frame. Capitals and digits stand in
/// the middle of the frame's height.
class MenubarText final : public MenubarElement {
public:
    using MenubarElement::MenubarElement;

    /// Sets and measures the text. Measuring takes as long as drawing, so an unchanged text keeps its
    /// size. Line breaks become blanks, and only the beginning of a very long text is kept. `style` must
    /// outlive this object.
    void setText(const QString& text, const TextStyle& style);

    void setMaximumWidth(double width) { maximumWidth_ = width; }

    [[nodiscard]] QSizeF fittingSize() const override { return {std::min(width_, maximumWidth_), height_}; }
    void draw(QPainter& painter, QSizeF size) const override;

private:
    QString text_;
    const TextStyle* style_ = nullptr; ///< null before the first text
    double width_ = 0;
    double height_ = 0;
    double maximumWidth_ = std::numeric_limits<double>::infinity();
};

} // namespace quor::helper
