// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"

#include <QObject>
#include <QRectF>
#include <QString>

#include <functional>
#include <vector>

namespace quor::platform {
class StatusItem;
}

namespace quor::helper {

/// The status item's menu: a press on the item asks for its rows, and what the user chooses there goes
/// out through the closures, which the owner sets. An empty one does nothing.
///
/// The button is highlighted from the request until the rows arrive. Borrows the item, which must
/// outlive it. Main thread only.
class MenubarMenuRenderer final : public QObject {
    Q_OBJECT

public:
    explicit MenubarMenuRenderer(platform::StatusItem& statusItem);

    std::function<void(const QString& searchTerm)> requestMenuEntries;
    std::function<void(const QString& taskID, double delta)> stopTimer; ///< seconds, 0 for now
    std::function<void(const QString& taskID, double delta)> adjustTimer; ///< seconds
    std::function<void(const QString& taskID)> startTimer;
    std::function<void()> openQuorHandler;
    std::function<void()> quitQuorHandler;

    /// Where the menu hangs: the item on the screen, as it stood at the last toggle, in
    /// device-independent pixels.
    [[nodiscard]] const QRectF& eventFrame() const { return eventFrame_; }

    void toggle();
    void showEntries(const std::vector<MenuEntry>& entries);

    /// Ends what `toggle` began; the focus stays where it is.
    void close();

private:
    platform::StatusItem& statusItem_;
    QRectF eventFrame_;
};

} // namespace quor::helper
