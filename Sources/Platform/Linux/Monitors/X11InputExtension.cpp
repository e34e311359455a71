// SPDX-License-Identifier: MIT
#include "Platform/Linux/Monitors/X11InputExtension.h"

#include "Platform/Linux/X11/X11Connection.h"

#include <array>
#include <string_view>

#include <xcb/xcbext.h>
#include <xcb/xinput.h>

namespace quor::platform {

namespace {

template <class Request>
unsigned send(xcb_connection_t* connection, Request request, int flags)
{
    static_assert(sizeof(Request) % 4 == 0);
    // xcb_send_request uses the two elements before the one that it is given.
    std::array<iovec, 3> parts{{{}, {}, {&request, sizeof request}}};
    xcb_protocol_request_t protocol{};
    protocol.count = 1;
    protocol.opcode = request.major_opcode;
    protocol.isvoid = (flags & XCB_REQUEST_CHECKED) == 0;
    return xcb_send_request(connection, flags, &parts[2], &protocol);
}

std::optional<std::uint8_t> inputOpcode(xcb_connection_t* connection)
{
    constexpr std::string_view name = "XInputExtension";
    const auto cookie = xcb_query_extension(connection, name.size(), name.data());
    const auto reply = x11Reply(xcb_query_extension_reply(connection, cookie, nullptr));
    return reply && reply->present ? std::optional(reply->major_opcode) : std::nullopt;
}

} // namespace

std::optional<std::uint8_t> negotiateInputExtension(xcb_connection_t* connection)
{
    const auto opcode = inputOpcode(connection);
    if (!opcode)
        return std::nullopt;
    xcb_input_xi_query_version_request_t request{};
    request.major_opcode = *opcode;
    request.minor_opcode = XCB_INPUT_XI_QUERY_VERSION;
    request.major_version = 2;
    request.minor_version = 2;
    const auto sequence = send(connection, request, XCB_REQUEST_CHECKED);
    // If Qt has negotiated a later version already, the server reports an error and keeps that version.
    xcb_generic_error_t* error = nullptr;
    const auto reply = x11Reply(
        static_cast<xcb_input_xi_query_version_reply_t*>(xcb_wait_for_reply(connection, sequence, &error)));
    const auto refusal = x11Reply(error);
    const bool isRecent = reply ? reply->major_version > 2 || reply->minor_version >= 1 : refusal != nullptr;
    return isRecent ? opcode : std::nullopt;
}

void selectPointerEvents(
    xcb_connection_t* connection, std::uint8_t opcode, xcb_window_t window, std::uint32_t mask)
{
    struct {
        std::uint8_t major_opcode;
        std::uint8_t minor_opcode = XCB_INPUT_XI_SELECT_EVENTS;
        std::uint16_t length = 0;
        xcb_window_t window;
        std::uint16_t maskCount = 1;
        std::uint16_t padding = 0;
        xcb_input_event_mask_t selection{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        std::uint32_t mask;
    } const request{.major_opcode = opcode, .window = window, .mask = mask};
    send(connection, request, 0);
    xcb_flush(connection);
}

} // namespace quor::platform
