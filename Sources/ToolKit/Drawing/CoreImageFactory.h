// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Tinting.h"

namespace quor::toolkit {

/// The kit's own images, from its resource bundle. Main thread only.
struct CoreImageFactory {
    enum class ImageName { syncSpinner, syncSpinnerSmall };

    /// Returns the image in its own size, drawn for this device pixel ratio; with `isTemplate` the image
    /// that is meant as a mask. The pixels are null if the bundle does not contain it.
    [[nodiscard]] static platform::TemplateImage image(
        ImageName name, bool isTemplate, qreal devicePixelRatio = 1);
};

} // namespace quor::toolkit
