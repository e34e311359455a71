// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace quor::toolkit {

// libical drops properties that are newer than it, does not write components with a name of their own, and
// writes some values in another way than it read them. So it gets to see only what this library reads;
// every other line, and every other component as a whole, stands for it in a property with encoded text,
// and comes back byte for byte when the file is written.

/// The property that stands for a component.
inline constexpr char maskedPart[] = "X-QUOR-MASKED-PART";

/// None for what is no calendar: components that do not match, are nested too deeply, or are no VCALENDAR
/// at the top, lines without a name, and lines outside of any component.
[[nodiscard]] std::optional<QByteArray> maskItems(QByteArrayView file);
/// As libical wrote it, with what was masked. Components stand behind the properties of what holds them.
[[nodiscard]] QByteArray unmaskItems(QByteArrayView text);

} // namespace quor::toolkit
