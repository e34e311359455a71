// SPDX-License-Identifier: MIT
#include "View/StatusItem/PillImage.h"

#include "ToolKit/Drawing/GraphicsContext.h"
#include "View/StatusItem/MenubarStackView.h"
#include "View/StatusItem/StatusItemPlan.h"

#include <QPainter>

namespace quor::helper {

namespace {

QImage transparentImage(QSize pixels, double devicePixelRatio)
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

QImage pillImage(const MenubarStackView& content, QSize size, double devicePixelRatio)
{
    const QSize pixels = (QSizeF(size) * devicePixelRatio).toSize();
    const QRectF bounds({}, QSizeF(pixels) / devicePixelRatio);

    // All cut-outs are drawn into one mask first: punching them out one by one takes twice as long.
    QImage mask = transparentImage(pixels, devicePixelRatio);
    QPainter maskPainter(&mask);
    content.drawTagged(maskPainter, bounds.size(), CutoutTag);
    maskPainter.end();

    QImage pill = transparentImage(pixels, devicePixelRatio);
    QPainter painter(&pill);
    toolkit::drawRoundedRect(painter, Qt::white, true, bounds.height() / 2, bounds);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawImage(0, 0, mask);
    return pill;
}

} // namespace quor::helper
