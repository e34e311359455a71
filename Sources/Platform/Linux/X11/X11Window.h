// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Strip/StripGeometry.h"

#include <QtGui/qwindowdefs.h>

class QRegion;

namespace quor::platform {

// Properties of a native window that Qt does not offer. Without X, these functions have no effect.

/// Has the whole window repainted after it is resized, instead of letting the server move the old content
/// with the window's left edge.
void forgetContentOnResize(WId window);

/// Puts the window on all virtual desktops. Call it before the window is shown, so that it never appears on
/// one desktop only, or after each time it was shown, since window managers forget it when it is hidden.
void setOnAllDesktops(WId window);

/// Keeps the window out of task bars and pagers. Call it before the window is shown.
void setOutOfWindowLists(WId window);

/// Cuts the window out along `shape`, in device pixels; an empty region makes it whole again. Returns false
/// if it cannot, because there is no X server with the XFixes extension.
[[nodiscard]] bool setWindowShape(WId window, const QRegion& shape);

/// Sets the area that the window reserves at the edge of the screen (`_NET_WM_STRUT` and
/// `_NET_WM_STRUT_PARTIAL`).
void setTopStrut(WId window, const TopStrut& strut);

} // namespace quor::platform
