// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"

/// The application's own resources, as the menu uses them. Looked for when first asked for. Main
/// thread only.
namespace quor::helper {

[[nodiscard]] const platform::Bundle& menuResources();

/// The text of `key` with `filling` in the place of its one "%@".
[[nodiscard]] QString filledText(const QString& key, const QString& filling);

/// A moment as hours and minutes, in the user's language and zone; `seconds` since 1970.
[[nodiscard]] QString timeText(double seconds);

} // namespace quor::helper
