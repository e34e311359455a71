// SPDX-License-Identifier: MIT
#pragma once

namespace quor::formkit {

/// How a text or control is aligned in its row. Left and right change sides in a right-to-left layout.
enum class FormTextAlignment { left, center, right };

} // namespace quor::formkit
