// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// The fonts of a menu: the user's general font, in sizes that follow the size of the user's menu font at
/// the moment of the call. Main thread only.
namespace quor::helper {

/// Rows: as large as the menu font, rounded to whole pixels, with digits of equal width.
[[nodiscard]] QFont menuFont();
/// Headings and labels of controls: 0.9 times the menu font, rounded to whole pixels, with digits of equal
/// width.
[[nodiscard]] QFont smallMenuFont();
/// Buttons: 11 device-independent pixels, and proportionally more for rows whose font is larger than the
/// usual 13 pixels, up to 16.5.
[[nodiscard]] QFont smallButtonFont();

} // namespace quor::helper
