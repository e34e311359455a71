// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <chrono>
#include <map>

namespace quor::toolkit {

struct HTTPRequest {
    struct Header {
        QString name;
        QString value;
    };

    QUrl url;
    QString method; ///< sent unchanged
    QByteArray body = {};
    std::map<QString, Header> headers = {}; ///< by the name in lower case
    /// For the whole exchange, including redirects.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);
    qint64 responseLimit = qint64(64) << 20; ///< of the body, in bytes after decompression

    /// Sets a header and replaces one with the same name. Ignores invalid names, values with line breaks or
    /// NUL, and the headers of the transfer itself (Connection, Content-Length, Expect, Host,
    /// Transfer-Encoding).
    void setHeader(const QString& name, const QString& value);
};

struct HTTPResponse {
    int statusCode = 0; ///< 0 if there was no response
    QByteArray body = {}; ///< empty after a failure
    std::map<QString, QString> headers = {}; ///< values of the same name are joined with ", "
    QString error = {}; ///< reason of the failure; empty if there was none

    /// The body as text; "" if it is not valid UTF-8.
    [[nodiscard]] QString text() const;
};

/// A request over HTTP or HTTPS with its response. Other protocols are refused, also in redirects.
///
/// Follows up to 20 redirects. As in browsers, a POST becomes a GET after a redirect by 301 or 302, and any
/// method except HEAD after one by 303. Authorization and cookies are not sent on to another server. There
/// are no stored cookies and no cache. Proxies are taken from the environment variables.
///
/// Blocks the calling thread. Any thread.
class HTTPExchange final {
public:
    explicit HTTPExchange(HTTPRequest request);

    /// Sends the request and waits for the response. Call it once.
    [[nodiscard]] HTTPResponse perform();

private:
    /// Changes the request for a redirect. Returns false if the redirect leads to another protocol.
    [[nodiscard]] bool follow(const HTTPResponse& response);

    HTTPRequest request_;
};

} // namespace quor::toolkit
