// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/FormItem.h"

#include <QPixmap>

namespace quor::formkit {

/// Returns the image of an item in a square with this side, in device-independent pixels. Null if there is no
/// such image. Main thread only.
[[nodiscard]] QPixmap itemImage(const FormItem::ImageType& image, int side, qreal devicePixelRatio);

} // namespace quor::formkit
