// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// The kit's shadows behind whole widgets. A radius is the deviation of the blur's bell curve, so a
/// shadow reaches about twice as far.
///
/// A widget bears one graphics effect at most: a shadow replaces what is there. The shadow falls on
/// what is around the widget within its window. Main thread only.
namespace quor::toolkit {

/// Black at 0.2, all around, radius 4.
void applyLightShadow(QWidget& widget);

/// Black at 0.2, two to the right and five down, radius 8.
void applyStrongShadow(QWidget& widget);

/// Takes away a shadow; another effect stays.
void removeShadow(QWidget& widget);

} // namespace quor::toolkit
