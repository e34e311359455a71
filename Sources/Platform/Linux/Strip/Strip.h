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

/// The status bar of our own: a narrow window in the top right corner of the main screen, above all
/// others, that never takes the focus and keeps its height free of other windows.
///
/// Items stand from the right in the order in which they came, each as wide as its length and a
/// little padding on both sides; the corner pixel of the screen belongs to the first. The strip is
/// light or dark with the appearance, and hidden while it has no item. Borrows the appearance, which
/// must outlive it. Main thread only.
class Strip final : public QObject, public StatusItemHost {
    Q_OBJECT

public:
    explicit Strip(Appearance& appearance);
    ~Strip() override; ///< All items must have left.

    [[nodiscard]] double thickness() const override;
    void attach(StatusItem& item) override;
    void detach(StatusItem& item) override;
    void lengthChanged(StatusItem& item) override;

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
