// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Monitors/MonitorList.h"

#include <QObject>

#include <optional>

class QMouseEvent;

namespace quor::platform {

/// The monitors of what goes to this application's own windows. Qt shows an event to the application's
/// filters for the window first and then for each widget; it is taken for the window, once.
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
    [[nodiscard]] static bool isSwallowed(
        const MonitorList<EventMonitors::LocalHandler>& monitors, InputEvent event);

    MonitorList<EventMonitors::LocalHandler> monitors_;
    bool listens_ = false;
    Qt::MouseButtons swallowed_; ///< Buttons whose press the window has not got.
};

} // namespace quor::platform
