// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/SessionBus.h"

#include <QDBusVariant>
#include <QHash>
#include <QObject>

namespace quor::test {

/// Replaces the desktop's settings portal. Has its own connection to the session bus.
class SettingsPortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// The values of the setting `color-scheme`.
    enum ColorScheme : uint { noPreference, preferDark, preferLight };

    /// Answers with `value` for each setting that has not been changed.
    explicit SettingsPortal(QVariant value);

    /// False if another process is the portal, or if there is no bus.
    [[nodiscard]] bool isServing() const { return serving_; }

    /// Answers with `value` for the setting `key` of `group` from now on, and reports the change.
    void change(const QString& key, const QVariant& value,
        const QString& group = QStringLiteral("org.freedesktop.appearance"));

public Q_SLOTS:
    /// Wraps the value in two variants, as portals do.
    Q_SCRIPTABLE QDBusVariant Read(const QString& group, const QString& key) const;

private:
    platform::SessionBus bus_;
    QVariant value_;
    QHash<QString, QVariant> changed_; // by group and key
    bool serving_;
};

} // namespace quor::test
