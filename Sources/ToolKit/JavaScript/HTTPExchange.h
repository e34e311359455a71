// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <chrono>
#include <map>

namespace quor::toolkit {

struct HTTPRequest {
    /// By their names in lower case, as names do not care.
    struct Header {
        QString name;
        QString value;
    };

    QUrl url;
    QString method; ///< sent as it stands
    QByteArray body = {};
    std::map<QString, Header> headers = {};
    std::chrono::milliseconds timeout = std::chrono::seconds(60); ///< for all, redirects included
    qint64 responseLimit = qint64(64) << 20; ///< bytes of the body, unpacked

    /// Replaces one of that name. Ignored: names that are none, values with line breaks or NUL, and what
    /// belongs to the transfer itself (Connection, Content-Length, Expect, Host, Transfer-Encoding).
    void setHeader(const QString& name, const QString& value);
};

struct HTTPResponse {
    int statusCode = 0; ///< 0 if there was no response
    QByteArray body = {}; ///< empty after a failure
    std::map<QString, QString> headers = {}; ///< those of one name joined with ", "
    QString error = {}; ///< why it failed; empty if it did not

    /// The body, "" unless it is UTF-8.
    [[nodiscard]] QString text() const;
};

/// One request over HTTP or HTTPS, and nothing else, also after redirects, of which it follows 20. As
/// browsers do, a POST that is redirected by 301 or 302, and anything by 303, goes on as GET, and what
/// authorises stays with the first server. No cookies, no cache; proxies as the environment says. Blocks
/// the calling thread; any thread.
class HTTPExchange final {
public:
    explicit HTTPExchange(HTTPRequest request);

    [[nodiscard]] HTTPResponse perform();

private:
    [[nodiscard]] bool follow(const HTTPResponse& response);

    HTTPRequest request_;
};

} // namespace quor::toolkit
