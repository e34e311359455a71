// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

namespace quor::platform {

/// A connection of this process to the session bus. Never starts a bus: if there is none, the object
/// stays unconnected and its functions fail.
///
/// Without a bus, creating a QApplication can make Qt start one. To prevent that, create no QApplication
/// if `sessionAddress` returns an empty text. Main thread only.
class SessionBus final : public QObject {
    Q_OBJECT

public:
    enum class Claim {
        claimed, ///< This connection owns the name, until the connection closes.
        taken, ///< Another connection owns the name.
        failed, ///< The bus did not answer within 5 seconds, or the name is not valid.
    };

    /// Returns the address of the session bus: `DBUS_SESSION_BUS_ADDRESS` if that names a running bus,
    /// otherwise the socket `bus` in `XDG_RUNTIME_DIR` if it exists, otherwise an empty text.
    [[nodiscard]] static QString sessionAddress();

    /// Connects to the bus at `address`. An empty address makes an unconnected object.
    explicit SessionBus(const QString& address = sessionAddress());
    ~SessionBus() override; ///< Closes the connection and releases the claimed names.

    [[nodiscard]] bool isConnected() const { return connection_.isConnected(); }

    /// Without a bus, messages that are sent through the result are dropped, and calls fail.
    [[nodiscard]] QDBusConnection connection() const { return connection_; }

    /// Requests to own a well-known name. If another connection owns it, does not queue for it; once
    /// claimed, the name cannot be taken over. Waits for the bus.
    [[nodiscard]] Claim claim(const QString& name);

    /// Returns a message that calls a method of the bus itself, to be sent through `connection`.
    [[nodiscard]] static QDBusMessage callOfBus(const QString& method, const QVariantList& arguments = {});

Q_SIGNALS:
    /// The connection was lost. This object does not connect again.
    void disconnected();

private:
    QDBusConnection connection_;
};

} // namespace quor::platform
