// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11Connection.h"

#include <QGuiApplication>

#include <cstdint>

using namespace Qt::StringLiterals;

namespace quor::platform {

// Some other platforms offer the native interface too.
xcb_connection_t* x11Connection()
{
    return QGuiApplication::platformName() == "xcb"_L1
        ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection()
        : nullptr;
}

xcb_window_t x11Root(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t x11Atom(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie = xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.data());
    const auto reply = x11Reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace quor::platform
