// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Requests/HTTPExchange.h"

#include "ToolKit/JavaScript/Requests/HTTPTransfer.h"
#include "ToolKit/JavaScript/Utf8Text.h"

#include <algorithm>
#include <array>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumRedirects = 20;

bool isHTTP(const QUrl& url)
{
    return (url.scheme() == "http"_L1 || url.scheme() == "https"_L1) && !url.host().isEmpty();
}

bool isToken(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar character) {
        return character > u' ' && character < QChar(0x7f) && !u"()<>@,;:\\\"/[]?={}"_s.contains(character);
    });
}

bool isRedirect(int status)
{
    constexpr std::array redirects{301, 302, 303, 307, 308};
    return std::find(redirects.begin(), redirects.end(), status) != redirects.end();
}

bool isSameOrigin(const QUrl& one, const QUrl& other)
{
    const auto port = [](const QUrl& url) { return url.port(url.scheme() == "https"_L1 ? 443 : 80); };
    return one.scheme() == other.scheme() && one.host() == other.host() && port(one) == port(other);
}

QString locationOf(const HTTPResponse& response)
{
    for (const auto& [name, value] : response.headers) {
        if (name.compare("location"_L1, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

} // namespace

void HTTPRequest::setHeader(const QString& name, const QString& value)
{
    const QString key = name.toLower();
    constexpr std::array reserved{
        "connection"_L1, "content-length"_L1, "expect"_L1, "host"_L1, "transfer-encoding"_L1};
    const auto isBreak = [](QChar character) {
        return character == u'\r' || character == u'\n' || character == QChar::Null;
    };
    if (!isToken(name) || std::find(reserved.begin(), reserved.end(), key) != reserved.end()
        || std::any_of(value.begin(), value.end(), isBreak))
        return;
    headers.insert_or_assign(key, Header{name, value});
}

QString HTTPResponse::text() const
{
    return utf8Text(body).value_or(QString());
}

HTTPExchange::HTTPExchange(HTTPRequest request)
    : request_(std::move(request))
{
}

HTTPResponse HTTPExchange::perform()
{
    if (!isHTTP(request_.url) || !isToken(request_.method))
        return {.error = u"The URL is not an HTTP URL, or the method is invalid."_s};
    const auto end = std::chrono::steady_clock::now() + request_.timeout;
    for (int redirects = 0; redirects <= maximumRedirects; ++redirects) {
        const auto left = end - std::chrono::steady_clock::now();
        request_.timeout = std::chrono::duration_cast<std::chrono::milliseconds>(left);
        if (request_.timeout.count() <= 0)
            return {.error = u"The request and its redirects took too long."_s};
        HTTPResponse response = HTTPTransfer(request_).perform();
        if (!isRedirect(response.statusCode) || locationOf(response).isEmpty())
            return response;
        if (!follow(response))
            return {.error = u"The server redirects to a URL that is not an HTTP URL."_s};
    }
    return {.error = u"The server redirects too often."_s};
}

bool HTTPExchange::follow(const HTTPResponse& response)
{
    QUrl next = request_.url.resolved(QUrl(locationOf(response)));
    if (!isHTTP(next))
        return false;
    const QString lowered = request_.method.toLower();
    const int status = response.statusCode;
    if ((status == 303 && lowered != "head"_L1)
        || ((status == 301 || status == 302) && lowered == "post"_L1)) {
        request_.method = u"GET"_s;
        request_.body.clear();
    }
    if (!isSameOrigin(next, request_.url)) {
        for (const auto& secret : {u"authorization"_s, u"cookie"_s, u"proxy-authorization"_s})
            request_.headers.erase(secret);
    }
    request_.url = std::move(next);
    return true;
}

} // namespace quor::toolkit
