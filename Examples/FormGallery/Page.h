// SPDX-License-Identifier: MIT
#pragma once

#include <FormKit/Form.h>
#include <Platform/Services/Appearance.h>

#include <QString>

#include <memory>
#include <vector>

namespace quor::gallery {

/// One page of the gallery: a form, and how it is shown.
struct Page {
    QString name; ///< on the command line and in names of files
    QString titleKey; ///< of the text in the list of pages
    /// Makes the form with the texts of the current default locale.
    std::shared_ptr<formkit::Form> (*make)(platform::ColorScheme scheme);
    bool hasStickyHeaders = false;
};

/// All pages, in their order in the list.
[[nodiscard]] const std::vector<Page>& pages();

/// The object name of the button that is pressed before a picture is made, in each form that has one.
constexpr auto pressedForPicture = "pressedForPicture";

} // namespace quor::gallery
