// SPDX-License-Identifier: MIT
#include "Platform/Services/WindowServer.h"

#include <QRegion>
#include <QTransform>
#include <QWidget>

namespace quor::platform {

void WindowServer::setShape(QWidget& window, const QRegion& shape)
{
    const qreal scale = 1 / window.devicePixelRatio();
    if (shape.isEmpty())
        window.clearMask();
    else
        window.setMask(QTransform::fromScale(scale, scale).map(shape));
}

} // namespace quor::platform
