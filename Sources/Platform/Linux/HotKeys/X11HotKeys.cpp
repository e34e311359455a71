// SPDX-License-Identifier: MIT
#include "Platform/Linux/HotKeys/X11HotKeys.h"

#include "Platform/Linux/Keyboard/VirtualKeyCodes.h"
#include "Platform/Linux/X11/X11Connection.h"

#include <QPointer>
#include <QSocketNotifier>

#include <algorithm>
#include <utility>

namespace quor::platform {

namespace {

constexpr int allModifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_LOCK | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1
    | XCB_MOD_MASK_2 | XCB_MOD_MASK_3 | XCB_MOD_MASK_4 | XCB_MOD_MASK_5;

} // namespace

void X11HotKeys::Disconnection::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

X11HotKeys::X11HotKeys(const QByteArray& display)
    : connection_(xcb_connect(display.constData(), nullptr))
{
    const auto event
        = xcb_connection_has_error(connection_.get()) ? std::nullopt : followX11Keyboard(connection_.get());
    if (!event) {
        connection_.reset();
        return;
    }
    keyboardEvent_ = *event;
    modifiers_ = x11Modifiers(connection_.get());
    notifier_ = std::make_unique<QSocketNotifier>(
        xcb_get_file_descriptor(connection_.get()), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &X11HotKeys::readEvents);
    readEventsLater();
}

X11HotKeys::~X11HotKeys() = default;

std::variant<HotKeys::Reference, HotKeyRefusal> X11HotKeys::registerHotKey(
    const HotKey& hotKey, Handlers handlers)
{
    const auto claimed = claim(hotKey);
    if (const auto* refusal = std::get_if<HotKeyRefusal>(&claimed))
        return *refusal;
    return registrations_.add({hotKey, std::move(handlers), std::get<Grab>(claimed), std::nullopt});
}

void X11HotKeys::unregisterHotKey(Reference reference)
{
    const auto registration = registrations_.remove(reference);
    if (registration && registration->grab && !isGrabbed(*registration->grab))
        ungrabKey(*registration->grab);
}

std::optional<HotKeyRefusal> X11HotKeys::refusal(Reference reference) const
{
    const auto* registration = registrations_.find(reference);
    return registration ? registration->refusal : std::nullopt;
}

std::variant<X11HotKeys::Grab, HotKeyRefusal> X11HotKeys::claim(const HotKey& hotKey)
{
    if (!connection_)
        return HotKeyRefusal::noService;
    const auto* setup = xcb_get_setup(connection_.get());
    const auto key = evdevCode(hotKey.keyCode).value_or(0) + x11KeycodeOffset;
    const auto modifiers = modifiers_.mask(hotKey.modifiers);
    if (!evdevCode(hotKey.keyCode) || key < setup->min_keycode || key > setup->max_keycode || !modifiers)
        return HotKeyRefusal::noSuchKey;
    const Grab grab{std::uint8_t(key), *modifiers};
    const auto refusal = isGrabbed(grab) ? std::nullopt : grabKey(grab);
    if (refusal)
        return *refusal;
    return grab;
}

// A grab is for exact modifiers, so each state of the lock keys needs one of its own.
std::optional<HotKeyRefusal> X11HotKeys::grabKey(const Grab& grab)
{
    auto* connection = connection_.get();
    std::vector<xcb_void_cookie_t> requests;
    for (const auto locks : modifiers_.lockVariants()) {
        requests.push_back(xcb_grab_key_checked(connection, 0, x11Root(connection), grab.modifiers | locks,
            grab.key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool isRefused = false;
    for (const auto request : requests)
        isRefused |= x11Reply(xcb_request_check(connection, request)) != nullptr;
    // Waiting can have brought events, which the notifier does not see.
    readEventsLater();
    if (xcb_connection_has_error(connection))
        return HotKeyRefusal::noService;
    if (!isRefused)
        return std::nullopt;
    ungrabKey(grab);
    return HotKeyRefusal::taken;
}

// Does not end the grab of other clients, nor a grab of this one that a held key has activated.
void X11HotKeys::ungrabKey(const Grab& grab)
{
    if (!connection_)
        return;
    auto* connection = connection_.get();
    for (const auto locks : modifiers_.lockVariants())
        xcb_ungrab_key(connection, grab.key, x11Root(connection), grab.modifiers | locks);
    xcb_flush(connection);
}

bool X11HotKeys::isGrabbed(const Grab& grab) const
{
    return std::ranges::any_of(
        registrations_, [&](const auto& registration) { return registration.second.grab == grab; });
}

void X11HotKeys::readEventsLater()
{
    QMetaObject::invokeMethod(this, &X11HotKeys::readEvents, Qt::QueuedConnection);
}

void X11HotKeys::readEvents()
{
    const QPointer self(this);
    while (self && connection_) {
        const auto event = x11Reply(xcb_poll_for_event(connection_.get()));
        if (!event)
            break;
        const auto type = event->response_type & 0x7f;
        if (type == XCB_KEY_PRESS)
            handlePress(reinterpret_cast<const xcb_key_press_event_t&>(*event));
        else if (type == XCB_KEY_RELEASE)
            handleRelease(reinterpret_cast<const xcb_key_press_event_t&>(*event));
        else if (type == keyboardEvent_)
            hasNewLayout_ = true;
    }
    if (!self || !connection_)
        return;
    // A new layout comes as many events, and is read once.
    if (std::exchange(hasNewLayout_, false))
        updateModifiers();
    if (self && connection_ && xcb_connection_has_error(connection_.get()))
        disconnectFromServer();
}

void X11HotKeys::handlePress(const xcb_key_press_event_t& press)
{
    const auto isSame = [&press](const auto& key) { return key.first == press.detail; };
    if (std::ranges::any_of(pressed_, isSame))
        return; // the key is held
    const Grab grab{press.detail, std::uint16_t(press.state & allModifiers & ~modifiers_.locks)};
    pressed_.emplace_back(press.detail,
        registrations_.select([&](const Registration& registration) { return registration.grab == grab; }));
}

// The modifiers may have gone up before, so the state of the release says nothing.
void X11HotKeys::handleRelease(const xcb_key_press_event_t& release)
{
    const auto key = std::ranges::find(pressed_, release.detail, [](const auto& each) { return each.first; });
    if (key == pressed_.end())
        return;
    const auto references = std::move(key->second);
    // The grab ends with the key that began it. Keys that are still down then go up elsewhere.
    if (key == pressed_.begin())
        pressed_.clear();
    else
        pressed_.erase(key);
    registrations_.notifyReleased(references);
}

void X11HotKeys::updateModifiers()
{
    const auto modifiers = x11Modifiers(connection_.get());
    readEventsLater();
    if (modifiers == modifiers_ || xcb_connection_has_error(connection_.get()))
        return;
    for (auto& [reference, registration] : registrations_) {
        if (const auto grab = std::exchange(registration.grab, std::nullopt))
            ungrabKey(*grab);
    }
    modifiers_ = modifiers;
    bool changes = false;
    for (auto& [reference, registration] : registrations_) {
        const auto claimed = claim(registration.hotKey);
        const auto* grab = std::get_if<Grab>(&claimed);
        registration.grab = grab ? std::optional(*grab) : std::nullopt;
        const auto refusal = grab ? std::nullopt : std::optional(std::get<HotKeyRefusal>(claimed));
        changes |= std::exchange(registration.refusal, refusal) != refusal;
    }
    if (changes)
        registrations_.notifyChanged();
}

void X11HotKeys::disconnectFromServer()
{
    notifier_.reset();
    connection_.reset();
    pressed_.clear();
    for (auto& [reference, registration] : registrations_) {
        registration.grab.reset();
        registration.refusal = HotKeyRefusal::noService;
    }
    registrations_.notifyChanged();
}

} // namespace quor::platform
