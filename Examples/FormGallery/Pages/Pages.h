// SPDX-License-Identifier: MIT
#pragma once

#include "FormGallery/Page.h"

/// The functions that make the forms of the pages; see `Page::make`.
namespace quor::gallery {

[[nodiscard]] std::shared_ptr<formkit::Form> makeLeftRows(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeTopRows(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeSticky(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeNotices(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeDisabled(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeDetails(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeDetailButtons(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeDates(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeNavigation(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makePopoverFromButton(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makePopoverFromSegment(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeTextInputs(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeMultilineText(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeNumberInputs(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeDurationInputs(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeColors(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeHotKeys(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeRoundedButtons(platform::ColorScheme scheme);
[[nodiscard]] std::shared_ptr<formkit::Form> makeManyRows(platform::ColorScheme scheme);

} // namespace quor::gallery
