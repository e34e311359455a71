// SPDX-License-Identifier: MIT
#include "Support/SettingsPortal.h"

#include <QDBusMessage>

namespace quor::test {

using namespace Qt::StringLiterals;

namespace {

const auto path = "/org/freedesktop/portal/desktop"_L1;

QString nameOf(const QString& group, const QString& key)
{
    return group + u'/' + key;
}

} // namespace

SettingsPortal::SettingsPortal(QVariant value)
    : value_(std::move(value))
    , serving_(bus_.connection().registerObject(path, this, QDBusConnection::ExportScriptableSlots)
          && bus_.claim(u"org.freedesktop.portal.Desktop"_s) == platform::SessionBus::Claim::claimed)
{
}

void SettingsPortal::change(const QString& key, const QVariant& value, const QString& group)
{
    changed_.insert(nameOf(group, key), value);
    auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal << group << key << QVariant::fromValue(QDBusVariant(value));
    bus_.connection().send(signal);
}

QDBusVariant SettingsPortal::Read(const QString& group, const QString& key) const
{
    return QDBusVariant(QVariant::fromValue(QDBusVariant(changed_.value(nameOf(group, key), value_))));
}

} // namespace quor::test
