// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

namespace quor::platform {

/// This process's connection to the session bus of its user. Never starts a bus: without one it is
/// just not connected.
///
/// Qt itself may start a stray bus as soon as there is a QApplication, so ask for `sessionAddress`
/// before making one. Main thread only.
class SessionBus final : public QObject {
    Q_OBJECT

public:
    enum class Claim {
        claimed, ///< The name is this connection's, for as long as it lasts.
        taken, ///< Somebody else has it.
        failed, ///< The bus cannot be asked, or the name is not a valid one.
    };

    /// Where the session's bus listens, by the environment; empty if the session has none.
    [[nodiscard]] static QString sessionAddress();

    explicit SessionBus(const QString& address = sessionAddress());
    ~SessionBus() override; ///< Closes the connection, and so gives up its names.

    [[nodiscard]] bool isConnected() const { return connection_.isConnected(); }
    /// Stays usable, without effect, while there is no connection.
    [[nodiscard]] QDBusConnection connection() const { return connection_; }

    /// Asks to own a well-known name, neither waiting in line for it nor letting others take it.
    [[nodiscard]] Claim claim(const QString& name);

Q_SIGNALS:
    /// The bus has gone, and will not come back on this connection.
    void disconnected();

private:
    QDBusConnection connection_;
};

} // namespace quor::platform
