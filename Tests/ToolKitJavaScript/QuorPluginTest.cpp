// SPDX-License-Identifier: MIT
#include "LoopbackServer.h"
#include "Support/Files.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace {

using namespace Qt::StringLiterals;

struct Outcome {
    int code;
    QString out;
    QString err;
};

Outcome runPlugin(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(QUOR_PLUGIN), arguments);
    process.waitForFinished();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError())};
}

TEST(QuorPlugin, RunsTheExamples)
{
    const QTemporaryDir folder;
    for (const QString& name : {u"plugin.js"_s, u"texts.json"_s})
        QFile::copy(QStringLiteral(EXAMPLE_PLUGINS "/greeting/") + name, folder.filePath(name));
    EXPECT_EQ(runPlugin({folder.path()}).out, u"Hello, world! You were here once.\n"_s);
    const Outcome again = runPlugin({folder.path(), u"--parameters"_s, uR"({"name": "Ada"})"_s});
    EXPECT_EQ(again.out, u"Hello, Ada! You were here 2 times.\n"_s);
    EXPECT_TRUE(again.err.contains(u"JavaScriptUtils.log"_s)) << again.err.toStdString();

    const quor::test::LoopbackServer server([](const QByteArray& request) -> QByteArray {
        return request.startsWith("GET /entries?since=2026-11-01 ") ? R"(HTTP/1.1 200 OK

[{"task": "Design", "seconds": 5400}, {"task": "Review", "seconds": 900}, {"task": "Design", "seconds": 1800}])"
                                                                    : "HTTP/1.1 404 No\n\n";
    });
    const QString fetching = QStringLiteral(EXAMPLE_PLUGINS "/hours");
    const auto parameters = [&](const QString& since) {
        return QStringList{
            fetching, u"--parameters"_s, uR"({"server": "%1", "since": "%2"})"_s.arg(server.url(), since)};
    };
    const Outcome hours = runPlugin(parameters(u"2026-11-01"_s));
    EXPECT_EQ(hours.out, u"{\"Design\":2,\"Review\":0.25}\n"_s) << hours.err.toStdString();
    const Outcome failed = runPlugin(parameters(u"x"_s));
    EXPECT_EQ(failed.code, 1);
    EXPECT_TRUE(failed.err.contains(u"plugin.js:"_s) && failed.err.contains(u"404"_s))
        << failed.err.toStdString();
}

TEST(QuorPlugin, ReportsErrors)
{
    const QTemporaryDir folder;
    EXPECT_EQ(runPlugin({folder.path()}).code, 1);
    quor::test::writeFile(folder.filePath(u"plugin.js"_s), "for (;;);");
    const Outcome endless = runPlugin({folder.path(), u"--time-limit"_s, u"0.05"_s});
    EXPECT_EQ(endless.code, 1);
    EXPECT_TRUE(endless.err.contains(u"processor time"_s)) << endless.err.toStdString();
    quor::test::writeFile(folder.filePath(u"plugin.js"_s), "'x'.repeat(2 ** 29)");
    const Outcome endlessText = runPlugin({folder.path()});
    EXPECT_EQ(endlessText.code, 1);
    EXPECT_TRUE(endlessText.err.contains(u"more than 64 Mi characters"_s)) << endlessText.err.toStdString();
    rusage used{};
    getrusage(RUSAGE_CHILDREN, &used);
    EXPECT_LT(used.ru_maxrss, 1200L << 10) << "KiB, for a text of 512 MiB";
    EXPECT_EQ(runPlugin({folder.path(), u"--parameters"_s, u"[1]"_s}).code, 2);
    EXPECT_EQ(runPlugin({folder.path(), u"--unknown"_s}).code, 2);
    const std::pair<QByteArray, QString> results[] = {{"123n", u"123"_s}, {"Symbol('a')", u"Symbol(a)"_s},
        {"undefined", u"undefined"_s}, {"({a: NaN})", u"{\"a\":null}"_s}, {"typeof x + y", u"undefined1"_s}};
    quor::test::writeFile(folder.filePath(u"p"_s), "{\"y\": 1}");
    for (const auto& [script, out] : results) {
        quor::test::writeFile(folder.filePath(u"plugin.js"_s), script);
        EXPECT_EQ(
            runPlugin({folder.path(), u"--parameters"_s, u'@' + folder.filePath(u"p"_s)}).out, out + u'\n');
    }
    quor::test::writeFile(folder.filePath(u"plugin.js"_s), "(async () => { throw {code: 4} })(); 3");
    const Outcome lost = runPlugin({folder.path()});
    EXPECT_EQ(lost.code, 1);
    EXPECT_TRUE(lost.err.contains(u"plugin.js: {\"code\":4}"_s)) << lost.err.toStdString();
    quor::test::writeFile(folder.filePath(u"texts.json"_s), "{\"a\": 3}");
    EXPECT_EQ(runPlugin({folder.path()}).code, 1);
    EXPECT_EQ(runPlugin({}).code, 2);
}

} // namespace
