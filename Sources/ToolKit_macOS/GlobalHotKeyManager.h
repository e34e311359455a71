// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Lifetime/Trackable.h"
#include "Platform/Services/HotKeys.h"

#include <cstdint>
#include <vector>

namespace quor::toolkit {

/// The combinations of keys that an application receives while another program is in front:
///
///     GlobalHotKeyManager manager(hotKeys);
///     manager.hotkeyPressedHandler = [](std::uint32_t id) { ... };
///     manager.registerHotkey(0x31, HotKeyModifier::control | HotKeyModifier::command, 1);
///
/// A combination cannot be withdrawn alone: unregister all, then register the set again. Borrows the hot
/// keys, which must outlive it. Its end gives all combinations up. Main thread only.
class GlobalHotKeyManager final : public platform::Trackable {
public:
    using EventHotKeyRef = platform::HotKeys::Reference;

    struct RefusedHotkey {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        std::uint32_t id = 0;
        platform::HotKeyRefusal reason = platform::HotKeyRefusal::noService;
    };

    explicit GlobalHotKeyManager(platform::HotKeys& hotKeys);
    ~GlobalHotKeyManager() { unregisterAllHotkeys(); }

    /// Claims a combination. `keyCode` is a virtual key code, `modifiers` a sum of `HotKeyModifier`. `id` is
    /// what the handler gets; several combinations may share it. Some desktops show the user `description`,
    /// in the user's language, and remember the user's choice of a combination by `id`.
    void registerHotkey(
        std::uint32_t keyCode, std::uint32_t modifiers, std::uint32_t id, const QString& description = {});
    void unregisterAllHotkeys();

    /// Those that the desktop accepted, in the order of registration.
    [[nodiscard]] std::vector<EventHotKeyRef> registeredHotkeys() const;

    /// Those that do not work, in the order of registration: refused at once or later.
    [[nodiscard]] std::vector<RefusedHotkey> refusedHotkeys() const;

    /// The combination that the desktop has bound for `id`, which the user may have changed, worded by the
    /// desktop. Returns an empty text if the desktop binds what was asked for, or has not answered.
    [[nodiscard]] QString triggerText(std::uint32_t id) const;

    /// Called with the `id` of a combination that was held down and let go, from the event loop.
    platform::Callback<void(std::uint32_t)> hotkeyPressedHandler;

    /// Called when `refusedHotkeys` or a `triggerText` has changed without a call of this object.
    platform::Callback<void()> hotkeysChangedHandler;

private:
    struct Registration {
        std::uint32_t keyCode;
        std::uint32_t modifiers;
        std::uint32_t id;
        std::variant<EventHotKeyRef, platform::HotKeyRefusal> outcome;
    };

    platform::HotKeys& hotKeys_;
    std::vector<Registration> registrations_; ///< With those that were refused.
};

} // namespace quor::toolkit
