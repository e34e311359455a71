// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>

class QColor;

/// Images by the names that the main application sends: those of the application's own resources
/// first, then those of the desktop's icon theme. What is unknown is remembered too, so asking again
/// is cheap. Main thread only.
namespace quor::helper::MenuIcons {

struct Icon {
    QImage pixels; ///< null for an unknown name
    /// To be shown in one colour. Ours always are; of the desktop's, those without colours of their own.
    bool isTemplate = false;

    [[nodiscard]] QSizeF size() const
    {
        return pixels.isNull() ? QSizeF(0, 0) : pixels.deviceIndependentSize();
    }
};

/// The icon in `height`, in device-independent pixels, its width by its proportions.
[[nodiscard]] Icon icon(const QString& name, int height, qreal devicePixelRatio);

/// The pixels to draw: in `color` if the icon is a template.
[[nodiscard]] QImage tinted(const Icon& icon, const QColor& color);

} // namespace quor::helper::MenuIcons
