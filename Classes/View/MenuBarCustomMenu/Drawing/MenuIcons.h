// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Tinting.h"

#include <QString>

/// The icons of rows, by the names that the main application sends. A name is looked up in the application's
/// own resources first, then in the desktop's icon theme. Results are cached, also for unknown names. Main
/// thread only.
namespace quor::helper::MenuIcons {

/// The largest width of an icon, relative to its height.
inline constexpr int largestAspectRatio = 3;

/// Returns the icon at this height, which is in device-independent pixels. The helper's own icons are
/// templates, and so are icons of the desktop that are grey throughout. The pixels are null for an unknown
/// name.
[[nodiscard]] platform::TemplateImage icon(const QString& name, int height, qreal devicePixelRatio);

} // namespace quor::helper::MenuIcons
