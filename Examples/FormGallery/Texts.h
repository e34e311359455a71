// SPDX-License-Identifier: MIT
#pragma once

#include <Platform/Resources/Bundle.h>

namespace quor::gallery {

/// The gallery's texts and colours.
[[nodiscard]] const platform::Bundle& resources();

/// Returns the text of `key` in the current default locale.
[[nodiscard]] QString text(const QString& key);

} // namespace quor::gallery
