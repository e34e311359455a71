// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11/X11WindowServer.h"

#include "Platform/Linux/X11/X11Connection.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

using namespace quor::platform;
using quor::test::waitFor;

namespace {

// Owns the selection of compositors until the connection is closed.
void becomeCompositor(xcb_connection_t* x)
{
    const xcb_window_t window = xcb_generate_id(x);
    xcb_create_window(x, 0, window, x11Root(x), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
        XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(x, window, x11Atom(x, "_NET_WM_CM_S0"), XCB_CURRENT_TIME);
    xcb_flush(x);
}

TEST(WindowServerX11Test, ReportsCompositorsThatStartAndEnd)
{
    X11WindowServer server;
    int changes = 0;
    auto subscription = server.observeCompositing([&] { ++changes; });
    EXPECT_FALSE(server.isCompositing());
    for (const int round : {0, 1}) {
        auto* compositor = xcb_connect(nullptr, nullptr);
        becomeCompositor(compositor);
        EXPECT_TRUE(waitFor([&] { return changes == 2 * round + 1; }));
        EXPECT_TRUE(server.isCompositing());
        xcb_disconnect(compositor);
        EXPECT_TRUE(waitFor([&] { return changes == 2 * round + 2; }));
        EXPECT_FALSE(server.isCompositing());
    }
}

} // namespace
