// SPDX-License-Identifier: MIT
#include "LoopbackServer.h"
#include "Support/TestLog.h"
#include "ToolKit/JavaScript/JavaScriptPlugin.h"
#include "ToolKit/JavaScript/Requests/HTTPExchange.h"

#include <gmock/gmock.h>

namespace {

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::test::LoopbackServer;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const QByteArray ok = "HTTP/1.1 200 OK\r\nX-A: 1\r\nx-a: 2\r\nContent-Length: 4\r\n\r\n\xc3\xa4 b";

QString run(const LoopbackServer& server, const QString& script, qint64 limit = 1 << 20)
{
    JavaScriptPlugin plugin;
    plugin.responseLimit = limit;
    const auto result = plugin.execute(script, {{u"url"_s, server.url()}});
    return result ? result->toString().value_or(u"throws"_s) : u"nothing"_s;
}

TEST(Request, SendsWhatTheScriptAsksFor)
{
    const LoopbackServer server([](const QByteArray&) { return ok; });
    const struct {
        QString call;
        testing::Matcher<std::string> request;
    } cases[] = {
        {u"utils.request(url + '?a=1#f', 'GET', null, null)"_s, StartsWith("GET / HTTP/1.1\r\n")},
        {u"utils.request(url + 'p?a=1', 'GeT', null, {b: 2, c: 'ä &='})"_s,
            StartsWith("GeT /p?b=2&c=%C3%A4%20%26%3D HTTP/1.1\r\n")},
        {u"utils.request(url, 'post', null, {a: 1, n: [null, undefined], f() {}})"_s,
            AllOf(StartsWith("post / HTTP"), testing::EndsWith("\r\n\r\n{\"a\":1,\"n\":[null,null]}"))},
        {u"utils.request(url, 'POST', null, {a: NaN})"_s, HasSubstr("Content-Length: 0\r\n")},
        {u"utils.request(url + '?a=1', 'DELETE', null, {b: 2})"_s,
            AllOf(StartsWith("DELETE /?a=1 HTTP"), testing::EndsWith("\r\n\r\n"))},
        {u"utils.request(url, 'GET', {'user-agent': 'x', accept: 'text/plain', N: 1}, null)"_s,
            AllOf(HasSubstr("User-Agent: Quor/0.0.0 JSPlugin/1.2\r\n"), HasSubstr("accept: text/plain\r\n"),
                HasSubstr("N: 1\r\n"), Not(HasSubstr("application/json\r\n")),
                HasSubstr("Content-Type: application/json; charset=utf-8\r\n"))},
        {u"utils.request(url, 'GET', {A: 'x\\r\\nEvil: 1', 'B:\\nEvil': '2', 'Content-Length': 7}, null)"_s,
            AllOf(Not(HasSubstr("Evil")), Not(HasSubstr("Content-Length")))},
    };
    for (const auto& [call, request] : cases) {
        EXPECT_EQ(run(server, u"r = "_s + call + u"; [r.statusCode, r.result, r.headers['X-A']].join('|')"_s),
            u"200|ä b|1, 2"_s)
            << call.toStdString();
        EXPECT_THAT(server.lastRequest().toStdString(), request);
    }
}

TEST(Request, ReturnsARecordForEveryAnswer)
{
    const QString script = u"r = utils.request(url, 'GET', {}, {}); JSON.stringify(r)"_s;
    const struct {
        QByteArray answer;
        QString result;
    } cases[] = {
        {"HTTP/1.1 500 No\r\nContent-Length: 2\r\n\r\nno",
            uR"({"headers":{"Content-Length":"2"},"result":"no","statusCode":500})"_s},
        {"HTTP/1.1 200 OK\r\n\r\n\xff\xfe", uR"({"headers":{},"result":"","statusCode":200})"_s},
        {"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\ncut",
            uR"({"headers":{"Content-Length":"9"},"result":"","statusCode":200})"_s},
        {"HTTP/1.1 200 OK\r\n\r\n" + QByteArray(1001, 'x'),
            uR"({"headers":{},"result":"","statusCode":200})"_s},
        {QByteArray(5000, '\x01'), uR"({"headers":{},"result":"","statusCode":0})"_s},
        {"", uR"({"headers":{},"result":"","statusCode":0})"_s},
        {"HTTP/1.1 302 F\r\nLocation: file:///etc/passwd\r\n\r\n",
            uR"({"headers":{},"result":"","statusCode":0})"_s},
    };
    for (const auto& [answer, result] : cases) {
        const LoopbackServer server([&answer = answer](const QByteArray&) { return answer; });
        EXPECT_EQ(run(server, script, 1000), result) << answer.left(60).toStdString();
    }
    const LoopbackServer unused([](const QByteArray&) { return ok; });
    EXPECT_EQ(run(unused,
                  u"[utils.request('not a url with spaces', 'GET', null, null), utils.request({toString() { "
                  u"throw 1 }}),"
                  " utils.request('file:///etc/passwd', 'GET'), utils.request(url, 'GET x\\r\\nEvil: 1')]"
                  ".map(r => Object.keys(r).length + ':' + r.statusCode).join()"_s),
        u"0:undefined,0:undefined,3:0,3:0"_s);
    EXPECT_EQ(unused.count(), 0);
}

TEST(Request, LimitsTheBodyAfterDecompression)
{
    const QByteArray packed
        = qCompress(QByteArray(2 << 20, 'x')).sliced(4); // without the length that qCompress puts before it
    const LoopbackServer bomb(
        [&](const QByteArray&) { return "HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\n\r\n" + packed; });
    const QString script = u"r = utils.request(url, 'GET'); [r.statusCode, r.result.length].join()"_s;
    EXPECT_EQ(run(bomb, script, 2 << 20), u"200,2097152"_s);
    EXPECT_EQ(run(bomb, script, 1 << 20), u"200,0"_s);

    const LoopbackServer large(
        [&](const QByteArray&) { return "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(100 << 20, 'x'); });
    EXPECT_EQ(run(large, script, JavaScriptPlugin().responseLimit), u"200,0"_s);
}

TEST(Request, FollowsSomeRedirectsAsBrowsersDo)
{
    const LoopbackServer endless([](const QByteArray&) {
        return QByteArray("HTTP/1.1 307 T\r\nLocation: /next\r\nContent-Length: 0\r\n\r\n");
    });
    EXPECT_EQ(run(endless, u"utils.request(url, 'GET').statusCode"_s), u"0"_s);
    EXPECT_EQ(endless.count(), 21);

    const LoopbackServer other([](const QByteArray&) { return ok; });
    const LoopbackServer first([&](const QByteArray&) {
        return "HTTP/1.1 302 F\r\nContent-Length: 0\r\nLocation: " + other.url(u"there"_s).toUtf8()
            + "\r\n\r\n";
    });
    EXPECT_EQ(
        run(first, u"utils.request(url, 'POST', {Authorization: 's', X: 1}, {a: 1}).statusCode"_s), u"200"_s);
    EXPECT_THAT(other.lastRequest().toStdString(),
        AllOf(StartsWith("GET /there"), Not(HasSubstr("Authorization")), HasSubstr("X: 1"),
            Not(HasSubstr("{"))));
}

TEST(Request, HasNoResponseIfTheProxyRefuses)
{
    const quor::test::TestLog log;
    const LoopbackServer proxy([](const QByteArray&) {
        return QByteArray("HTTP/1.1 403 No\r\nX-Proxy: 1\r\nContent-Length: 0\r\n\r\n");
    });
    qputenv("https_proxy", proxy.url().toUtf8());
    const QString response = run(proxy, u"JSON.stringify(utils.request('https://quor.invalid/', 'GET'))"_s);
    qunsetenv("https_proxy");
    EXPECT_EQ(response, uR"({"headers":{},"result":"","statusCode":0})"_s);
    EXPECT_THAT(proxy.lastRequest().toStdString(), StartsWith("CONNECT quor.invalid:443 "));
    EXPECT_EQ(log.text(), "");
}

TEST(Request, FailsAfterItsTimeoutAtASilentServer)
{
    const LoopbackServer server([](const QByteArray&) { return QByteArray(); });
    HTTPRequest request{QUrl(server.url()), u"GET"_s};
    EXPECT_EQ(request.timeout, std::chrono::seconds(60));
    request.timeout = std::chrono::milliseconds(50);
    const HTTPResponse response = HTTPExchange(request).perform();
    EXPECT_EQ(response.statusCode, 0);
    EXPECT_FALSE(response.error.isEmpty());
}

} // namespace
