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

/// Returns the point size of a style: for `body` that of the user's general font, for the other styles
/// larger or smaller in proportion.
[[nodiscard]] double preferredPointSize(TextStyle style);

/// The user's general font in the size of a text style times a factor.
struct CustomFontSizeModifier {
    TextStyle style = TextStyle::body;
    QFont::Weight weight = QFont::Normal;
    double sizeFactor = 1;

    /// Returns the font. Its size is kept between 1 and 1000 points; a factor that is not a number gives 1.
    [[nodiscard]] QFont font() const;

    /// Sets the font of `content`.
    void apply(QWidget& content) const;
};

} // namespace quor::toolkit
