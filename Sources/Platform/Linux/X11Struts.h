// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/StripGeometry.h"

#include <QtGui/qwindowdefs.h>

namespace quor::platform {

/// Tells the window manager what room a window reserves, by `_NET_WM_STRUT` and
/// `_NET_WM_STRUT_PARTIAL`. Does nothing where the application does not run through X.
void setTopStrut(WId window, const TopStrut& strut);

} // namespace quor::platform
