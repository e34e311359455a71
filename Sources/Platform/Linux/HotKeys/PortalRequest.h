// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>

class QDBusMessage;

namespace quor::platform {

// The desktop's portal on the session bus.
constexpr auto portalService = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";

/// Returns a name that the portal may use in the path of an object for this process, never the same twice.
[[nodiscard]] QString nextPortalToken();

/// Returns the path of the object that the portal makes for `token`; `kind` is "request" or "session".
[[nodiscard]] QString portalObjectPath(
    const QDBusConnection& connection, const QString& kind, const QString& token);

/// Has the portal end one of its objects. Does not start a portal that has ended itself.
void closePortalObject(const QDBusConnection& connection, const QString& path, const QString& interface);

/// A call of the portal that it answers later, when the user has decided. Waits as long as that takes. If it
/// ends before the answer, the portal is told to give up.
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    enum class Outcome { granted, declined, noService };
    /// Called at most once, from the event loop. May destroy the request.
    using Answered = std::function<void(Outcome, const QVariantMap& results)>;

    /// Calls the method with `arguments` and, as the last one, `options`.
    PortalRequest(const QDBusConnection& connection, const QString& interface, const QString& method,
        const QVariantList& arguments, QVariantMap options, Answered answered);
    ~PortalRequest() override;

private Q_SLOTS:
    void responded(const QDBusMessage& response);

private:
    void answer(Outcome outcome, const QVariantMap& results);

    QDBusConnection connection_;
    QString path_;
    Answered answered_; ///< Empty after the answer.
};

} // namespace quor::platform
