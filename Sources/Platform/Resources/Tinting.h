// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>

/// Colours and images in another shade. Any thread.
namespace quor::platform {

/// Returns `color` with this alpha, which is from 0 to 1.
[[nodiscard]] inline QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

/// How `tinted` treats the colours of an image. It matters only for a translucent tint.
enum class Tint {
    replacesColors, ///< the image becomes a mask: only its alpha matters
    coversColors, ///< the tint lies over the image's own colours, which shine through
};

/// Returns `image` in `color`, with the alpha of the image and its device pixel ratio.
[[nodiscard]] QImage tinted(const QImage& image, const QColor& color, Tint tint = Tint::replacesColors);

/// An image that is shown as it is or, as a template, is a mask that is shown in a colour which suits
/// its surroundings.
struct TemplateImage {
    QImage pixels; ///< null if there is no image; has the device pixel ratio that it was made for
    bool isTemplate = false;

    /// Returns the pixels to show: in `color` if this is a template.
    [[nodiscard]] QImage shownIn(const QColor& color) const;

    /// Returns the size in device-independent pixels; (0, 0) if there is no image.
    [[nodiscard]] QSizeF size() const
    {
        return pixels.isNull() ? QSizeF(0, 0) : pixels.deviceIndependentSize();
    }

    /// Compares the pixels, the device pixel ratio and whether both are templates.
    friend bool operator==(const TemplateImage& a, const TemplateImage& b);
};

} // namespace quor::platform
