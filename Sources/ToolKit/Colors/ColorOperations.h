// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>

namespace quor::platform {
class Appearance;
struct DynamicColor;
} // namespace quor::platform

/// Colours from and to hexadecimal values, their products, mixtures and contrast.
///
/// All work on red, green, blue and alpha from 0 to 1, as doubles: a colour of another model is
/// converted first, an invalid one counts as 0 in all four. Results are kept within 0 to 1, are
/// always valid and in RGB. A channel of n/255 survives every conversion as n. Any thread.
namespace quor::toolkit {

/// Reads hexadecimal digits behind any number of "#" and an optional "0x", up to the first other
/// character, as 0xRRGGBB; black without digits. Alpha is 1. There is no short form: "#FFF" is 0xFFF.
[[nodiscard]] QColor colorWithHexString(QStringView text);

/// `value` is 0xRRGGBB; higher bits are ignored.
[[nodiscard]] QColor colorWithHexValue(quint32 value, double alpha);

/// Each component times its factor.
[[nodiscard]] QColor colorWithRedFactor(
    const QColor& color, double redFactor, double greenFactor, double blueFactor, double alphaFactor);

/// `amount` 0 gives `color`, 1 gives `other`.
[[nodiscard]] QColor mixWithColor(const QColor& color, const QColor& other, double amount);
[[nodiscard]] QColor mixWithColorWithHexValue(
    const QColor& color, quint32 value, double alpha, double amount);

/// 0xRRGGBB, each channel truncated, without alpha.
[[nodiscard]] quint32 hexColor(const QColor& color);

/// The same as text: "#F58C6E".
[[nodiscard]] QString hexString(const QColor& color);

/// `light` where the luminance of `color` (ITU-R BT.709, of the components as they stand) is above
/// `threshold`, else `dark`.
[[nodiscard]] QColor contrastColor(
    const QColor& color, const QColor& dark, const QColor& light, double threshold);

/// `color` with this alpha.
[[nodiscard]] QColor resolvedColor(const QColor& color, double alpha);

/// What `color` is under the application's effective appearance, with this alpha. It waits for the
/// main thread, so the main thread must not be waiting for the caller.
[[nodiscard]] QColor resolvedColor(
    const platform::DynamicColor& color, double alpha, const platform::Appearance& application);

} // namespace quor::toolkit
