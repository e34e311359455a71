// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/HotKeys/HotKeyRegistry.h"
#include "Platform/Linux/HotKeys/X11Modifiers.h"
#include "Platform/Services/HotKeys.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>
#include <memory>
#include <vector>

class QSocketNotifier;
struct xcb_connection_t;
struct xcb_key_press_event_t;

namespace quor::platform {

/// Hot keys by key grabs of the X server, whatever platform Qt runs on. Caps Lock, Num Lock and the like make
/// no difference. The keys stay the same if the user changes the layout.
///
/// Has a connection of its own to the server, since on Qt's connection a held key looks like one that is
/// pressed and let go again and again. If the connection breaks, all hot keys are refused for want of a
/// service from then on. Needs an application object.
class X11HotKeys final : public QObject, public HotKeys {
    Q_OBJECT

public:
    /// Connects to the server at `display`, by default the one in `DISPLAY`. Waits for the server.
    explicit X11HotKeys(const QByteArray& display = qgetenv("DISPLAY"));
    ~X11HotKeys() override;

    [[nodiscard]] bool isAvailable() const override { return connection_ != nullptr; }
    /// Waits for the server.
    [[nodiscard]] std::variant<Reference, HotKeyRefusal> registerHotKey(
        const HotKey& hotKey, Handlers handlers) override;
    void unregisterHotKey(Reference reference) override;
    [[nodiscard]] std::optional<HotKeyRefusal> refusal(Reference reference) const override;
    [[nodiscard]] QString triggerText(Reference) const override { return {}; }

private:
    struct Disconnection {
        void operator()(xcb_connection_t* connection) const;
    };
    /// A key with modifiers, in the server's terms.
    struct Grab {
        std::uint8_t key = 0;
        std::uint16_t modifiers = 0;
        bool operator==(const Grab&) const = default;
    };
    struct Registration {
        HotKey hotKey;
        Handlers handlers;
        std::optional<Grab> grab; ///< Empty while it is refused.
        std::optional<HotKeyRefusal> refusal;
    };

    [[nodiscard]] std::variant<Grab, HotKeyRefusal> claim(const HotKey& hotKey);
    [[nodiscard]] std::optional<HotKeyRefusal> grabKey(const Grab& grab);
    void ungrabKey(const Grab& grab);
    [[nodiscard]] bool isGrabbed(const Grab& grab) const;
    void readEvents();
    void readEventsLater();
    void handlePress(const xcb_key_press_event_t& press);
    void handleRelease(const xcb_key_press_event_t& release);
    void updateModifiers();
    void disconnectFromServer();

    std::unique_ptr<xcb_connection_t, Disconnection> connection_; ///< Null without a server.
    std::unique_ptr<QSocketNotifier> notifier_;
    std::uint8_t keyboardEvent_ = 0; ///< The type of the events that report another layout.
    bool hasNewLayout_ = false;
    X11Modifiers modifiers_;
    HotKeyRegistry<Registration> registrations_;
    /// The keys that went down, in this order, with what each of them is to report when it goes up. The
    /// server sends this connection all keys from the press of a grabbed key to its release.
    std::vector<std::pair<std::uint8_t, std::vector<Reference>>> pressed_;
};

} // namespace quor::platform
