// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"

#include <QObject>

#include <optional>

class QDBusMessage;

namespace quor::platform {

class SessionBus;

/// Tells an `Appearance` whether the desktop is light or dark: by the settings portal where it knows,
/// else by the palette that the desktop gives the application. Follows both; never waits for the portal.
///
/// Borrows both arguments, which must outlive it. Needs a QApplication. Main thread only.
class PortalAppearance final : public QObject {
    Q_OBJECT

public:
    PortalAppearance(SessionBus& bus, Appearance& appearance);

    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void settingChanged(const QDBusMessage& change);

private:
    void askPortal(SessionBus& bus);
    void setPortalScheme(const QVariant& value);
    void apply();

    Appearance& appearance_;
    std::optional<ColorScheme> portalScheme_; ///< None while the portal has no say.
    ColorScheme paletteScheme_ = ColorScheme::light; ///< Of the palette that the desktop gave last.
};

} // namespace quor::platform
