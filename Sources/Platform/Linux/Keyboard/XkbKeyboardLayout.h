// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/KeyboardLayout.h"

#include <QByteArray>

#include <memory>

struct xcb_connection_t;
struct xkb_context;

namespace quor::platform {

/// The layout of the X server. Without one, the layout that the XKB configuration of the system names, and
/// the environment (`XKB_DEFAULT_LAYOUT` and the like).
///
/// Has a connection of its own to the server. Each function waits for the server, as the user can change the
/// layout at any time.
class XkbKeyboardLayout final : public KeyboardLayout {
public:
    /// Connects to the server at `display`, by default the one in `DISPLAY`.
    explicit XkbKeyboardLayout(const QByteArray& display = qgetenv("DISPLAY"));
    ~XkbKeyboardLayout() override;
    XkbKeyboardLayout(const XkbKeyboardLayout&) = delete;
    XkbKeyboardLayout& operator=(const XkbKeyboardLayout&) = delete;

    [[nodiscard]] QString text(std::uint32_t keyCode) const override;

    /// Returns the name that XKB has for the symbol on a key, like "a" or "Return". Returns an empty text if
    /// there is no such key, or nothing on it.
    [[nodiscard]] QString symbolName(std::uint32_t keyCode) const;

private:
    struct Release {
        void operator()(xcb_connection_t* connection) const;
        void operator()(xkb_context* context) const;
    };

    std::unique_ptr<xcb_connection_t, Release> connection_; ///< Null without a server.
    std::unique_ptr<xkb_context, Release> context_;
};

} // namespace quor::platform
