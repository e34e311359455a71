// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Strip/StripGeometry.h"

#include <QtGui/qwindowdefs.h>

namespace quor::platform {

// What Qt cannot say about a window to the X server. Each does nothing where the application does not
// run through X.

/// Has a resized window painted anew as a whole, and until then leaves the pixels on the screen as they
/// are, where the server would else move the old content with the window's left edge.
void forgetContentOnResize(WId window);

/// Has the window on every virtual desktop. To be said each time after it was shown, since window
/// managers forget it as it is hidden. Said before, it holds from the first moment.
void setOnAllDesktops(WId window);

/// Keeps the window out of lists of windows and pictures of the desktops. To be said before it is shown.
void setOutOfWindowLists(WId window);

/// Tells the window manager what room the window reserves, by `_NET_WM_STRUT` and
/// `_NET_WM_STRUT_PARTIAL`.
void setTopStrut(WId window, const TopStrut& strut);

} // namespace quor::platform
