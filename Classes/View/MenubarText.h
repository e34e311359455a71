// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenubarElement.h"
#include "View/StatusItemStyle.h"

#include <QString>

#include <algorithm>
#include <limits>

namespace quor::helper {

/// One line of white text, left aligned and clipped where it ends. The middle of its capitals and
/// digits stands in the middle of its height.
class MenubarText final : public MenubarElement {
    Q_OBJECT

public:
    MenubarText(const QString& text, const TextStyle& style, int tag, QWidget* parent = nullptr);

    /// What is shown: of a long text its beginning, and line breaks as blanks.
    [[nodiscard]] const QString& text() const { return text_; }

    void setMaximumFrameWidth(double width) { maximumWidth_ = width; }

    [[nodiscard]] QSizeF fittingSize() const override { return {std::min(width_, maximumWidth_), height_}; }
    void draw(QPainter& painter) const override;

private:
    QString text_;
    TextStyle style_;
    double width_;
    double height_;
    double maximumWidth_ = std::numeric_limits<double>::infinity();
};

} // namespace quor::helper
