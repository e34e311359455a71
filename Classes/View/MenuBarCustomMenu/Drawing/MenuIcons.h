// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Tinting.h"

#include <QString>

/// Images by the names that the main application sends: first those of the application's own resources,
/// then those of the desktop's icon theme. Unknown names are remembered too, so looking a name up again
/// is cheap. Main thread only.
namespace quor::helper::MenuIcons {

/// Returns the icon at this height, in device-independent pixels; its width follows from its proportions.
/// An icon of our own is a template, and so is an icon of the desktop without colours of its own. The
/// pixels are null for an unknown name.
[[nodiscard]] platform::TemplateImage icon(const QString& name, int height, qreal devicePixelRatio);

} // namespace quor::helper::MenuIcons
