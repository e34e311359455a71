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
/// All functions work on red, green, blue and alpha from 0 to 1. A colour of another model is converted to
/// RGB first; of an invalid colour all four components are 0. Returned colours are always valid and RGB,
/// with components kept within 0 to 1. A channel of n/255 stays exactly n in every conversion. Any thread.
namespace quor::toolkit {

/// Returns the colour of a text such as "#F58C6E": any number of "#", an optional "0x", then hexadecimal
/// digits up to the first other character, read as 0xRRGGBB. Returns black if there are no digits. Alpha is
/// 1. There is no short form: "#FFF" is 0x000FFF.
[[nodiscard]] QColor colorWithHexString(QStringView text);

/// Returns the colour of `value`, which is 0xRRGGBB; higher bits are ignored.
[[nodiscard]] QColor colorWithHexValue(quint32 value, double alpha);

/// Returns `color` with each component multiplied by its factor.
[[nodiscard]] QColor colorWithRedFactor(
    const QColor& color, double redFactor, double greenFactor, double blueFactor, double alphaFactor);

/// Returns a mixture of the two colours: `color` for an `amount` of 0, `other` for 1.
[[nodiscard]] QColor mixWithColor(const QColor& color, const QColor& other, double amount);
/// The same with the colour of `value`, 0xRRGGBB, and `alpha`.
[[nodiscard]] QColor mixWithColorWithHexValue(
    const QColor& color, quint32 value, double alpha, double amount);

/// Returns 0xRRGGBB, each channel truncated to a byte, without the alpha.
[[nodiscard]] quint32 hexColor(const QColor& color);

/// Returns the same as text, such as "#F58C6E".
[[nodiscard]] QString hexString(const QColor& color);

/// Returns `light` if the luminance of `color` is above `threshold`, else `dark`. The luminance is the sum
/// of the components with the weights of ITU-R BT.709, without gamma correction.
[[nodiscard]] QColor contrastColor(
    const QColor& color, const QColor& dark, const QColor& light, double threshold);

/// Returns `color`, or a mixture of it with as little black or white as makes a text readable on
/// `background`: with a contrast of at least 4.5, as the Web Content Accessibility Guidelines define it. Both
/// are opaque.
[[nodiscard]] QColor readableColor(const QColor& color, const QColor& background);

/// Returns `color` with this alpha.
[[nodiscard]] QColor resolvedColor(const QColor& color, double alpha);

/// Returns the value of `color` in the application's effective appearance, with this alpha. Waits for the
/// main thread, so the main thread must not be waiting for the caller.
[[nodiscard]] QColor resolvedColor(
    const platform::DynamicColor& color, double alpha, const platform::Appearance& application);

} // namespace quor::toolkit
