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

    /// Returns the font. Its size is clamped to 1 to 1000 points, and is 1 if the factor is not a number.
    [[nodiscard]] QFont font() const;

    /// Sets the font of `content`.
    void apply(QWidget& content) const;
};

} // namespace quor::toolkit
