// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <array>
#include <vector>

namespace quor::toolkit {

/// An ordered palette of colours, each 0xRRGGBB, with look-up by index and back.
///
/// The way back is fuzzy: a colour that went through a conversion with a small loss in its lowest
/// channel is still found.
class ColorModel final {
public:
    explicit ColorModel(std::vector<int> colors);

    /// The opaque colour at `index`, which wraps around at both ends. Invalid for an empty palette.
    [[nodiscard]] QColor color(int index) const;

    /// The first index whose entry differs from `value` by less than 10, as whole 24-bit numbers;
    /// 0 if there is none.
    [[nodiscard]] int index(int value) const;

    std::vector<int> colors;
};

/// What colour pickers offer.
inline constexpr std::array<int, 8> defaultPalette{
    0xF58C6E, 0xFFBB5C, 0x9DD257, 0x00CA8F, 0x00BFF9, 0x4465F9, 0x9D86F7, 0xE80C7A};

} // namespace quor::toolkit
