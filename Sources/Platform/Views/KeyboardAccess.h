// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

/// Whether the Tab key reaches every control of a form, as users of this desktop expect. If not, it stops
/// only at the controls that take text, dates and the like, and passes buttons, check boxes and links. True
/// at first. Main thread only.
[[nodiscard]] bool isFullKeyboardAccessEnabled();

/// Forms follow at their next render.
void setFullKeyboardAccessEnabled(bool enabled);

} // namespace quor::platform
