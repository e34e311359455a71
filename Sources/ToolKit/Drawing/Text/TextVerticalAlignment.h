// SPDX-License-Identifier: MIT
#pragma once

namespace quor::toolkit {

/// Which edge of a text, or its middle, stands at the y that it is drawn at.
enum class TextVerticalAlignment { top, bottom, center };

} // namespace quor::toolkit
