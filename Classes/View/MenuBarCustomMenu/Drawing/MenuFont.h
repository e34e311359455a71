// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// The fonts of a menu: the user's general font in sizes that follow their menu font, as it stands at
/// each call, digits of equal width. Main thread only.
namespace quor::helper {

[[nodiscard]] QFont menuFont();
/// Of headings, and of what is said beside controls.
[[nodiscard]] QFont smallMenuFont();
/// 11 device-independent pixels, up to half as large again where the menu font is larger
/// than the usual 13.
[[nodiscard]] QFont smallButtonFont();

} // namespace quor::helper
