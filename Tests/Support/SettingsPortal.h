// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/SessionBus.h"

#include <QDBusVariant>
#include <QObject>

namespace quor::test {

/// The desktop's settings portal as far as it tells of light and dark, in place of the real one, which
/// needs a whole desktop. Serves from its own connection to the session bus.
class SettingsPortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// What `color-scheme` tells.
    enum ColorScheme : uint { noPreference, preferDark, preferLight };

    /// Answers with `value`, whatever the question.
    explicit SettingsPortal(QVariant value);

    /// Whether the portal's name on the bus is this one's.
    [[nodiscard]] bool isServing() const { return serving_; }

    /// Answers with `value` from now on and tells that the setting `key` of the appearance changed.
    void change(const QString& key, const QVariant& value);

public Q_SLOTS:
    /// Portals wrap twice what they read.
    Q_SCRIPTABLE QDBusVariant Read(const QString& group, const QString& key) const;

private:
    platform::SessionBus bus_;
    QVariant value_;
    bool serving_;
};

} // namespace quor::test
