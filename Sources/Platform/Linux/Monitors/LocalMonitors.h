// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Monitors/MonitorList.h"

#include <QObject>

#include <optional>

class QKeyEvent;
class QMouseEvent;

namespace quor::platform {

/// The local monitors, fed by an event filter on the application. Qt passes an event to such a filter for the
/// window first, then for each widget; the monitors get it once, for the window.
class LocalMonitors final : public QObject {
    Q_OBJECT

public:
    void add(EventMonitors::Token token, EventMask mask, EventMonitors::LocalHandler handler);
    void remove(EventMonitors::Token token);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void listen();
    bool swallows(QWindow& window, const QMouseEvent& event);
    bool swallows(QWindow& window, const QKeyEvent& event);
    [[nodiscard]] static bool isSwallowed(
        const MonitorList<EventMonitors::LocalHandler>& monitors, InputEvent event);

    MonitorList<EventMonitors::LocalHandler> monitors_;
    bool listens_ = false;
    Qt::MouseButtons swallowed_; ///< The buttons that are down and whose press was swallowed.
};

} // namespace quor::platform
