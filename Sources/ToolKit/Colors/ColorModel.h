// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <array>
#include <vector>

namespace quor::toolkit {

/// An ordered palette of colours, each 0xRRGGBB, with look-up by index and by colour.
///
/// The look-up by colour is fuzzy: it still finds a colour that lost a little of its blue in a conversion.
class ColorModel final {
public:
    explicit ColorModel(std::vector<int> colors);

    /// Returns the opaque colour at `index`, which wraps around at both ends; an invalid colour if the
    /// palette is empty.
    [[nodiscard]] QColor color(int index) const;

    /// Returns the first index whose entry differs from `value` by less than 10, both taken as 24-bit
    /// numbers; 0 if there is no such entry.
    [[nodiscard]] int index(int value) const;

    std::vector<int> colors;
};

/// The colours that colour pickers offer.
inline constexpr std::array<int, 8> defaultPalette{
    0xF58C6E, 0xFFBB5C, 0x9DD257, 0x00CA8F, 0x00BFF9, 0x4465F9, 0x9D86F7, 0xE80C7A};

} // namespace quor::toolkit
