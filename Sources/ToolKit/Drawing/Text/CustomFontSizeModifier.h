// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

class QWidget;

namespace quor::toolkit {

/// What a text is for, from which the desktop's size for it follows.
enum class TextStyle {
    largeTitle,
    title,
    title2,
    title3,
    headline,
    subheadline,
    body,
    callout,
    footnote,
    caption,
    caption2
};

/// The point size of a style: `body` has the user's general font's own, the others theirs in
/// proportion.
[[nodiscard]] double preferredPointSize(TextStyle style);

/// Sets content in the user's general font, sized by its style times a factor.
struct CustomFontSizeModifier {
    TextStyle style = TextStyle::body;
    QFont::Weight weight = QFont::Normal;
    double sizeFactor = 1;

    /// Kept between 1 and 1000 points; a factor that is not a number gives the smallest.
    [[nodiscard]] QFont font() const;

    void apply(QWidget& content) const;
};

} // namespace quor::toolkit
