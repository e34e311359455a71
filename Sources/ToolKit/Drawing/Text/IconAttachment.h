// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"

#include <QColor>
#include <QFont>
#include <QImage>

namespace quor::toolkit {

/// Returns the height of an icon in text of this font, in whole device-independent pixels: somewhat more
/// than a capital letter.
[[nodiscard]] double iconHeight(const QFont& font);

/// Returns `image` tinted with `color`, as an attachment for a line of text: `iconHeight` high, centred on
/// the capital letters. For a null image it returns an attachment without an image or a size.
[[nodiscard]] platform::TextAttachment iconAttachment(
    const QImage& image, const QColor& color, const QFont& font);

} // namespace quor::toolkit
