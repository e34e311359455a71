// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarElement.h"
#include "View/StatusItem/StatusItemStyle.h"

#include <QString>

#include <algorithm>
#include <limits>

namespace quor::helper {

/// One line of white text, left aligned and clipped where it ends. The middle of its capitals and
/// digits stands in the middle of its height.
class MenubarText final : public MenubarElement {
    Q_OBJECT

public:
    MenubarText(const TextStyle& style, int tag, QWidget* parent = nullptr);

    /// Of a long text only the beginning is kept; line breaks show as blanks. Measures the text, which
    /// takes as long as drawing it, but only where it has changed.
    void setText(const QString& text);

    void setMaximumFrameWidth(double width) { maximumWidth_ = width; }

    [[nodiscard]] QSizeF fittingSize() const override { return {std::min(width_, maximumWidth_), height_}; }
    void draw(QPainter& painter) const override;

private:
    TextStyle style_;
    QString text_;
    double width_ = 0;
    double height_;
    double maximumWidth_ = std::numeric_limits<double>::infinity();
};

} // namespace quor::helper
