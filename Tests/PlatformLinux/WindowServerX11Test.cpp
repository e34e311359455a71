// SPDX-License-Identifier: MIT
#include "Platform/Linux/X11/X11WindowServer.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

#include <xcb/xcb.h>

using quor::platform::X11WindowServer;
using quor::test::waitFor;

namespace {

// As a compositor does as it starts; it ends with its connection.
void becomeCompositor(xcb_connection_t* x)
{
    constexpr std::string_view name = "_NET_WM_CM_S0";
    auto* atom = xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, name.size(), name.data()), nullptr);
    const xcb_window_t window = xcb_generate_id(x);
    xcb_create_window(x, 0, window, xcb_setup_roots_iterator(xcb_get_setup(x)).data->root, 0, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(x, window, atom->atom, XCB_CURRENT_TIME);
    xcb_flush(x);
    std::free(atom);
}

TEST(WindowServerX11Test, HearsOfCompositorsThatComeAndGo)
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
