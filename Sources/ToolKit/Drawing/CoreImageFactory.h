// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Tinting.h"

namespace quor::toolkit {

/// The kit's own images, from its resource bundle. Main thread only.
struct CoreImageFactory {
    enum class ImageName { syncSpinner, syncSpinnerSmall };

    /// Returns the image in its own size, drawn for `devicePixelRatio`. `isTemplate` selects the variant of
    /// the image that serves as a mask. If the bundle does not contain the image, `pixels` is null.
    [[nodiscard]] static platform::TemplateImage image(
        ImageName name, bool isTemplate, qreal devicePixelRatio = 1);
};

} // namespace quor::toolkit
