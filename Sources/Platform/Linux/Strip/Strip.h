// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"
#include "Platform/Services/StatusItemHost.h"

#include <QMetaObject>
#include <QObject>

#include <array>
#include <memory>
#include <vector>

class QScreen;

namespace quor::platform {

class Appearance;
class StripWindow;

/// This library's own status bar: a narrow window in the top right corner of the main screen. It stays above
/// all other windows, never takes the focus, and reserves its height so that maximized windows stay below.
///
/// Items stand from right to left in the order of their creation, each in its width plus a little padding
/// on both sides; a press on the corner pixel of the screen hits the first item. The strip is light or
/// dark as the appearance is, and hidden while it has no item. Borrows the appearance, which must outlive
/// it. Main thread only.
class Strip final : public QObject, public StatusItemHost {
    Q_OBJECT

public:
    explicit Strip(Appearance& appearance);
    ~Strip() override; ///< All items must have been detached.

    [[nodiscard]] double thickness() const override;
    void attach(StatusItem& item) override;
    void detach(StatusItem& item) override;
    void widthChanged(StatusItem& item) override;

private:
    void followScreen(QScreen* screen);
    void applyAppearance();
    void hideIfEmpty();
    void layOut();

    Appearance& appearance_;
    Subscription appearanceChanges_;
    std::unique_ptr<StripWindow> window_;
    std::vector<StatusItem*> items_;
    std::array<QMetaObject::Connection, 2> screenChanges_;
};

} // namespace quor::platform
