// SPDX-License-Identifier: MIT
#pragma once

#include <FormKit_macOS/Presentation/FormServices.h>

#include <QString>

#include <optional>

namespace quor::gallery {

struct Page;

/// Writes pictures of `page`, or of all pages if it is null, into `folder`, which is made if it is missing.
/// Returns the reason if that fails.
///
/// `rows-left-de-dark.png` is the page `rows-left` in German and dark, `rows-left-de-dark@2x.png` the same at
/// scale 2, `rows-left-rtl.png` the page from right to left. A picture shows the page as it is in a window of
/// its own, with its popover. For the second scale the program runs a second time. Changes the language, the
/// direction and the colours of the application. Needs a QApplication.
[[nodiscard]] std::optional<QString> writePictures(
    const QString& folder, const Page* page, formkit::FormServices services);

} // namespace quor::gallery
