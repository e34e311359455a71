// SPDX-License-Identifier: MIT
#include "Platform/Linux/Monitors/X11GlobalMonitors.h"

#include "Platform/Linux/Monitors/X11InputExtension.h"
#include "Platform/Linux/X11/X11Connection.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>

#include <utility>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace quor::platform {

namespace {

constexpr std::uint32_t rawButtons
    = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;

// Raw events have the device's button number, before the user's mapping (for instance for left-handed use).
std::uint32_t mappedButton(xcb_connection_t* connection, std::uint32_t button)
{
    const auto reply
        = x11Reply(xcb_get_pointer_mapping_reply(connection, xcb_get_pointer_mapping(connection), nullptr));
    const bool isMapped = reply && button > 0 && button <= reply->map_len;
    return isMapped ? xcb_get_pointer_mapping_map(reply.get())[button - 1] : button;
}

std::optional<EventType> typeOf(bool isDown, std::uint32_t button)
{
    switch (button) {
    case XCB_BUTTON_INDEX_1:
        return isDown ? EventType::leftMouseDown : EventType::leftMouseUp;
    case XCB_BUTTON_INDEX_3:
        return isDown ? EventType::rightMouseDown : EventType::rightMouseUp;
    default:
        return std::nullopt;
    }
}

bool isDown(EventType type)
{
    return type == EventType::leftMouseDown || type == EventType::rightMouseDown;
}

std::size_t buttonIndex(EventType type)
{
    return type == EventType::leftMouseDown || type == EventType::leftMouseUp ? 0 : 1;
}

} // namespace

X11GlobalMonitors::~X11GlobalMonitors()
{
    close();
}

bool X11GlobalMonitors::add(EventMonitors::Token token, EventMask mask, EventMonitors::GlobalHandler handler)
{
    if (!open())
        return false;
    monitors_.add(token, mask, std::move(handler));
    return true;
}

void X11GlobalMonitors::remove(EventMonitors::Token token)
{
    monitors_.remove(token);
    if (monitors_.isEmpty())
        close();
}

bool X11GlobalMonitors::open()
{
    if (connection_)
        return true;
    auto* connection = x11Connection();
    const auto opcode = connection ? negotiateInputExtension(connection) : std::nullopt;
    if (!opcode)
        return false;
    connection_ = connection;
    inputOpcode_ = *opcode;
    mailbox_ = xcb_generate_id(connection);
    xcb_create_window(connection, 0, mailbox_, x11Root(connection), -1, -1, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    selectPointerEvents(connection, inputOpcode_, x11Root(connection), rawButtons);
    QCoreApplication::instance()->installNativeEventFilter(this);
    return true;
}

void X11GlobalMonitors::close()
{
    if (!std::exchange(connection_, nullptr))
        return;
    undecided_.clear();
    pressReceivers_ = {};
    auto* connection = x11Connection(); // null if the application object has been destroyed
    if (!connection)
        return;
    QCoreApplication::instance()->removeNativeEventFilter(this);
    selectPointerEvents(connection, inputOpcode_, x11Root(connection), 0);
    xcb_destroy_window(connection, mailbox_);
    xcb_flush(connection);
}

bool X11GlobalMonitors::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* generic = static_cast<xcb_generic_event_t*>(message);
    switch (generic->response_type & 0x7f) {
    case XCB_CLIENT_MESSAGE:
        if (static_cast<xcb_client_message_event_t*>(message)->window != mailbox_)
            return false;
        handleMessage();
        return true;
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE: // if Qt does not use the extension
        handleOwnEvent((generic->response_type & 0x7f) == XCB_BUTTON_PRESS,
            static_cast<xcb_button_press_event_t*>(message)->time);
        return false;
    case XCB_GE_GENERIC:
        if (static_cast<xcb_ge_generic_event_t*>(message)->extension == inputOpcode_)
            handleInputEvent(message);
        return false;
    default:
        return false;
    }
}

// Raw and ordinary button events have the members that are used here at the same offsets.
void X11GlobalMonitors::handleInputEvent(const void* message)
{
    const auto& event = *static_cast<const xcb_input_button_press_event_t*>(message);
    switch (event.event_type) {
    case XCB_INPUT_RAW_BUTTON_PRESS:
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        handleRawEvent(event.event_type == XCB_INPUT_RAW_BUTTON_PRESS, event.detail, event.time);
        break;
    case XCB_INPUT_BUTTON_PRESS:
    case XCB_INPUT_BUTTON_RELEASE:
        handleOwnEvent(event.event_type == XCB_INPUT_BUTTON_PRESS, event.time);
        break;
    default:
        break;
    }
}

void X11GlobalMonitors::handleRawEvent(bool isDown, std::uint32_t button, std::uint32_t time)
{
    const auto type = typeOf(isDown, mappedButton(connection_, button));
    if (!type)
        return;
    const QPoint location = QCursor::pos();
    undecided_.push_back({{*type, location, QGuiApplication::queryKeyboardModifiers(), nullptr}, time,
        QGuiApplication::topLevelAt(location) != nullptr});

    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = mailbox_;
    message.type = XCB_ATOM_INTEGER;
    xcb_send_event(connection_, 0, mailbox_, 0, reinterpret_cast<const char*>(&message));
    xcb_flush(connection_);
}

void X11GlobalMonitors::handleOwnEvent(bool isDown, std::uint32_t time)
{
    for (auto& raw : undecided_) {
        if (raw.time == time && platform::isDown(raw.event.type) == isDown)
            raw.isOurs = true;
    }
}

void X11GlobalMonitors::handleMessage()
{
    if (undecided_.empty())
        return;
    const RawEvent raw = std::move(undecided_.front());
    undecided_.pop_front();
    const auto receiver = raw.isOurs ? Receiver::us : Receiver::others;
    auto& pressReceiver = pressReceivers_.at(buttonIndex(raw.event.type));
    // The application that got the press also gets the release, wherever the pointer is.
    const auto known = isDown(raw.event.type) ? Receiver::unknown : pressReceiver;
    pressReceiver = isDown(raw.event.type) ? receiver : Receiver::unknown;
    if ((known == Receiver::unknown ? receiver : known) == Receiver::us)
        return;
    // Handlers run from the event loop, not within Qt's handling of an X event.
    QMetaObject::invokeMethod(
        this, [this, event = raw.event] { notify(event); }, Qt::QueuedConnection);
}

void X11GlobalMonitors::notify(const InputEvent& event)
{
    monitors_.visit(event.type, [event](const EventMonitors::GlobalHandler& handler) {
        handler(event);
        return true;
    });
}

} // namespace quor::platform
