// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// The kit's shadows of whole widgets. A radius is the standard deviation of the blur, so a shadow reaches
/// about twice as far.
///
/// A widget has at most one graphics effect: a shadow replaces an earlier effect. The shadow is visible
/// around the widget, within its window. Main thread only.
namespace quor::toolkit {

/// Gives the widget a shadow on all sides: black of alpha 0.2, radius 4.
void applyLightShadow(QWidget& widget);

/// Gives the widget a shadow two pixels to the right and five down: black of alpha 0.2, radius 8.
void applyStrongShadow(QWidget& widget);

/// Removes the widget's shadow. Another kind of graphics effect stays.
void removeShadow(QWidget& widget);

} // namespace quor::toolkit
