// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"

/// The texts and images of the menu. Main thread only.
namespace quor::helper {

/// The application's own bundle, which is loaded at the first call.
[[nodiscard]] const platform::Bundle& menuResources();

/// Returns the localized text of `key` with `value` in place of its "%@".
[[nodiscard]] QString filledText(const QString& key, const QString& value);

/// Returns a moment as hours and minutes in the user's language and time zone; `seconds` since 1970.
[[nodiscard]] QString timeText(double seconds);

} // namespace quor::helper
