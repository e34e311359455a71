// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <variant>

namespace quor::platform {

/// The modifiers of a hot key, as bits of a mask. Other bits have no meaning.
namespace HotKeyModifier {
inline constexpr std::uint32_t command = 0x0100; ///< The Super key.
inline constexpr std::uint32_t shift = 0x0200;
inline constexpr std::uint32_t option = 0x0800; ///< The Alt key.
inline constexpr std::uint32_t control = 0x1000;
} // namespace HotKeyModifier

/// What a hot key reports when it fires.
struct HotKeyIdentifier {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;
};

/// A combination of keys that an application wants to receive while another program is in front.
struct HotKey {
    std::uint32_t keyCode = 0; ///< A virtual key code: the position of a key, whatever the layout puts there.
    std::uint32_t modifiers = 0; ///< A sum of `HotKeyModifier`.
    HotKeyIdentifier identifier;
    QString description; ///< What it is for, in the user's language. Some desktops show it. May be empty.
};

/// Why a combination does not work.
enum class HotKeyRefusal {
    taken, ///< Another program has the combination.
    noSuchKey, ///< The keyboard has no such key, or the key code has no meaning.
    noService, ///< The desktop does not offer hot keys, or does not any more.
    declined, ///< The desktop, or the user whom it asked, declined.
};

/// Combinations of keys that an application receives while another program is in front. Main thread only.
class HotKeys {
public:
    /// Identifies one registration with this object, which never uses a reference twice.
    enum class Reference : std::uint64_t {};

    /// Neither function may throw. Both may destroy the object that calls them.
    struct Handlers {
        /// The combination was held down and its key was let go. Called from the event loop.
        std::function<void(HotKeyIdentifier)> released;
        /// `refusal` or `triggerText` changed. Not called from within `registerHotKey`.
        std::function<void()> changed;
    };

    virtual ~HotKeys() = default;

    /// Whether the desktop offers hot keys at all. If not, each registration is refused.
    [[nodiscard]] virtual bool isAvailable() const = 0;

    /// Claims a combination until `unregisterHotKey` or the end of this object. A desktop that asks the user
    /// accepts at first, and can still refuse later.
    [[nodiscard]] virtual std::variant<Reference, HotKeyRefusal> registerHotKey(
        const HotKey& hotKey, Handlers handlers)
        = 0;

    /// Gives a combination up. Its handlers are not called again. Ignores a reference that is not in use.
    virtual void unregisterHotKey(Reference reference) = 0;

    /// Why a combination that was accepted does not work now. Returns `nullopt` if it works, or is still to
    /// be answered by the desktop.
    [[nodiscard]] virtual std::optional<HotKeyRefusal> refusal(Reference reference) const = 0;

    /// The combination that the desktop has bound, which the user may have changed, as the desktop words it
    /// for the user. Returns an empty text if the desktop binds what was asked for, or has not answered.
    [[nodiscard]] virtual QString triggerText(Reference reference) const = 0;

protected:
    HotKeys() = default;
    HotKeys(const HotKeys&) = default;
    HotKeys& operator=(const HotKeys&) = default;
};

} // namespace quor::platform
