// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Tinting.h"

namespace quor::toolkit {

/// The kit's own images, from its resource bundle. Main thread only.
struct CoreImageFactory {
    enum class ImageName { syncSpinner, syncSpinnerSmall };

    /// The image in its own size, drawn for that many device pixels a point; with `isTemplate` the
    /// one that is a mask for whoever shows it to colour. Its pixels are null where the bundle does
    /// not hold it.
    [[nodiscard]] static platform::TemplateImage image(
        ImageName name, bool isTemplate, qreal devicePixelRatio = 1);
};

} // namespace quor::toolkit
