// SPDX-License-Identifier: MIT
#include "View/PillImage.h"

#include "ToolKit/Drawing/GraphicsContext.h"
#include "View/MenubarStackView.h"
#include "View/StatusItemPlan.h"

#include <QPainter>

namespace quor::helper {

QImage pillImage(MenubarStackView& content, QSize size, double devicePixelRatio)
{
    const QSize pixels = (QSizeF(size) * devicePixelRatio).toSize();
    const QRectF bounds({}, QSizeF(pixels) / devicePixelRatio);
    content.layOut(bounds.size());

    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    content.drawTagged(painter, CutoutTag);
    // The pill fills what the cut-outs have left, and takes their place. Punching them out of it one by
    // one, or all together out of an image of their own, gives the same pixels and takes longer.
    painter.setCompositionMode(QPainter::CompositionMode_SourceOut);
    toolkit::drawRoundedRect(painter, Qt::white, true, bounds.height() / 2, bounds);
    return image;
}

} // namespace quor::helper
