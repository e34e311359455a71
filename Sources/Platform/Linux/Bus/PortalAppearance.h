// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"

#include <QObject>

#include <optional>

class QDBusMessage;

namespace quor::platform {

class SessionBus;

/// Keeps the desktop's colour scheme in an `Appearance` up to date, and whether the desktop animates. The
/// scheme is the settings portal's if the portal has one, otherwise the scheme of the palette that the
/// desktop gave the application. The desktop animates unless the portal says that it does not. Does not wait
/// for the portal: until its first answer, the palette decides.
///
/// Borrows the bus and the appearance, which must outlive this object. Needs a QApplication. Main thread
/// only.
class PortalAppearance final : public QObject {
    Q_OBJECT

public:
    PortalAppearance(SessionBus& bus, Appearance& appearance);

    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void settingChanged(const QDBusMessage& change);

private:
    void followSetting(SessionBus& bus, const QString& group, const QString& key);
    void useSetting(const QString& group, const QVariant& wrapped);
    void apply();

    Appearance& appearance_;
    std::optional<ColorScheme> portalScheme_; ///< Empty while the portal reports no scheme.
    ColorScheme paletteScheme_ = ColorScheme::light; ///< The scheme of the desktop's last palette.
};

} // namespace quor::platform
