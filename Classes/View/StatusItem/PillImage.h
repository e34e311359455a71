// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>

namespace quor::helper {

class MenubarStackView;

/// The status item's pill: a white rounded rectangle with the cut-out elements of `content` punched
/// out of it, a half transparent one by half. Lays `content` out in it.
///
/// `size` is in device-independent pixels. The image bears `devicePixelRatio`, and ends with a whole
/// device pixel on each side.
[[nodiscard]] QImage pillImage(MenubarStackView& content, QSize size, double devicePixelRatio);

} // namespace quor::helper
