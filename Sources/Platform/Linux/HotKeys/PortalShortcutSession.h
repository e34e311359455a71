// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/HotKeys/PortalRequest.h"
#include "Platform/Linux/HotKeys/PortalShortcut.h"
#include "Platform/Services/HotKeys.h"

#include <QMap>

#include <memory>
#include <optional>

namespace quor::platform {

/// A set of shortcuts that the portal binds for as long as this object lives. The portal binds a session's
/// shortcuts once, so another set needs another session.
class PortalShortcutSession final : public QObject {
    Q_OBJECT

public:
    PortalShortcutSession(const QDBusConnection& connection, QList<PortalShortcut> shortcuts);
    ~PortalShortcutSession() override; ///< Has the portal forget the session.

    /// Why a shortcut is not bound; `nullopt` if it is bound, or the portal has not answered yet.
    [[nodiscard]] std::optional<HotKeyRefusal> refusal(const QString& id) const;
    /// What the user has to press, as the portal words it. Empty if the portal does not say.
    [[nodiscard]] QString triggerText(const QString& id) const { return triggers_.value(id); }
    /// Whether the portal has refused the session as a whole, or ended it.
    [[nodiscard]] bool hasFailed() const { return failure_.has_value(); }

Q_SIGNALS:
    /// The user let the keys of a shortcut go.
    void deactivated(const QString& id);
    /// A `refusal` or `triggerText` changed.
    void changed();

private Q_SLOTS:
    void handleDeactivated(const QDBusMessage& signal);
    void handleShortcutsChanged(const QDBusMessage& signal);
    void handleClosed();

private:
    void bind();
    void fail(PortalRequest::Outcome outcome);
    void useShortcuts(const QVariant& shortcuts);

    QDBusConnection connection_;
    QList<PortalShortcut> shortcuts_;
    QString path_;
    std::unique_ptr<PortalRequest> creation_;
    std::unique_ptr<PortalRequest> binding_;
    std::optional<HotKeyRefusal> failure_;
    bool isBound_ = false;
    QMap<QString, QString> triggers_; ///< Of the shortcuts that are bound.
};

} // namespace quor::platform
