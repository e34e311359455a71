// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/HotKeys/HotKeyRegistry.h"
#include "Platform/Linux/Keyboard/XkbKeyboardLayout.h"
#include "Platform/Services/HotKeys.h"

#include <QObject>

#include <memory>

namespace quor::platform {

class PortalShortcutSession;
class SessionBus;

/// Hot keys by the desktop's global-shortcuts portal. The desktop may ask the user, who may choose other
/// keys.
///
/// Does not wait for the portal: it accepts a combination, and reports a refusal later. What is registered
/// and unregistered in one turn of the event loop reaches the portal as one change. If the portal vanishes,
/// the hot keys are refused for want of a service until it is back. Borrows the bus, which must outlive it.
class PortalHotKeys final : public QObject, public HotKeys {
    Q_OBJECT

public:
    explicit PortalHotKeys(SessionBus& bus);
    ~PortalHotKeys() override;

    /// Whether there is a bus. Whether there is a portal turns out at the first registration.
    [[nodiscard]] bool isAvailable() const override;
    [[nodiscard]] std::variant<Reference, HotKeyRefusal> registerHotKey(
        const HotKey& hotKey, Handlers handlers) override;
    void unregisterHotKey(Reference reference) override;
    [[nodiscard]] std::optional<HotKeyRefusal> refusal(Reference reference) const override;
    [[nodiscard]] QString triggerText(Reference reference) const override;

private:
    struct Registration {
        HotKey hotKey;
        Handlers handlers;
        QString shortcut; ///< What the portal calls it. Stays the same in later runs of the program.
    };

    void bindLater();
    void bind();
    void handleOwnerChanged(const QString& newOwner);
    void handleDeactivated(const QString& shortcut);
    [[nodiscard]] QString freeShortcut(std::uint32_t id) const;
    [[nodiscard]] QVariantMap properties(const HotKey& hotKey) const;

    SessionBus& bus_;
    XkbKeyboardLayout layout_;
    HotKeyRegistry<Registration> registrations_;
    bool hasToBind_ = false;
    bool isPortalGone_ = false;
    std::unique_ptr<PortalShortcutSession> session_; ///< Null if there is nothing to bind, or no portal.
};

} // namespace quor::platform
