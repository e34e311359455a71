// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "Platform/Text/AttributedString.h"

#include <QColor>
#include <QFont>
#include <QStringList>

namespace quor::toolkit {

/// A label of `text` and icons before or behind it, all separated by blanks.
///
/// The icons are `images`' of these names, tinted and sized to suit `font` (see `iconAttachment`);
/// a name without an image is left out. The label truncates at its end and is aligned to the right
/// with the icons first, else to the left. Main thread only.
[[nodiscard]] platform::AttributedString composedLabel(const platform::AttributedString& text,
    const QStringList& imageNames, const QColor& tintColor, const QFont& font, bool imagesFirst,
    const platform::Bundle& images);

} // namespace quor::toolkit
