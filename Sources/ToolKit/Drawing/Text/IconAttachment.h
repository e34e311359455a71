// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"

#include <QColor>
#include <QFont>
#include <QImage>

namespace quor::toolkit {

/// How high an icon stands in text of this font, in device-independent pixels: somewhat more than a
/// capital letter, whole.
[[nodiscard]] double iconHeight(const QFont& font);

/// `image` in a single colour, keeping its alpha, for a line of text: `iconHeight` high, centred on
/// the capital letters. A null image gives an attachment without an image or a size.
[[nodiscard]] platform::TextAttachment iconAttachment(
    const QImage& image, const QColor& color, const QFont& font);

} // namespace quor::toolkit
