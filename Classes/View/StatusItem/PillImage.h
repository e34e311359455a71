// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>

namespace quor::helper {

class MenubarStackView;

/// Returns the status item's pill: a white rounded rectangle with the cut-out elements of `content`
/// punched out of it, half transparent elements by half.
///
/// `size` is in device-independent pixels. The image has the given device pixel ratio; its sides are
/// `size` rounded to whole device pixels.
[[nodiscard]] QImage pillImage(const MenubarStackView& content, QSize size, double devicePixelRatio);

} // namespace quor::helper
