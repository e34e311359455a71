// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"
#include "Platform/Text/AttributedString.h"

#include <QColor>
#include <QFont>
#include <QStringList>

namespace quor::toolkit {

/// Returns a label of `text` and of icons before or after it, all separated by blanks.
///
/// The icons are the images of these names in the bundle `images`, tinted and sized to suit `font` (see
/// `iconAttachment`); a name without an image is left out. The label truncates at its end. With the icons
/// first it is aligned to the right, else to the left. Main thread only.
[[nodiscard]] platform::AttributedString composedLabel(const platform::AttributedString& text,
    const QStringList& imageNames, const QColor& tintColor, const QFont& font, bool imagesFirst,
    const platform::Bundle& images);

} // namespace quor::toolkit
