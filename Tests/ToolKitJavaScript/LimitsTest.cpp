// SPDX-License-Identifier: MIT
#include "Support/Files.h"
#include "Support/TestLog.h"
#include "Support/WaitFor.h"
#include "ToolKit/JavaScript/JavaScriptPlugin.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <csignal>

#include <poll.h>
#include <unistd.h>

namespace {

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using testing::AnyOf;

const QString exceedsTime = u"Error: The script exceeded its limit of processor time."_s;
const QString exceedsMemory = u"Error: The script exceeded its limit of memory."_s;

// None of them ends by itself: neither the run, nor its promise jobs, nor reading its result or its
// exceptions.
const char* const hangingScripts[] = {
    // Loops.
    "for (;;);",
    "while (true) {}",
    "do {} while (1)",
    "a: for (;;) { continue a }",
    "for (;;) try { for (;;); } catch (e) {} finally { continue }",
    "for (;;) new Date",
    "for (;;) eval('1')",
    "for (;;) new Function('return 1')()",
    "class A { static { for (;;); } }",
    "s = new Set([1]); for (const x of s) { s.delete(x); s.add(x) }",
    "with (new Proxy({}, {has() { for (;;); }})) x",
    "for (const k in new Proxy({}, {ownKeys() { for (;;); }}));",
    "for (;;) try { 3n ** 999999n } catch {}",
    // Recursion.
    "f = n => n ? f(n - 1) + f(n - 1) : 0; f(100)",
    "function g() { try { g() } catch { g() } } g()",
    "function g() { try { g() } finally { g() } } g()",
    // Regular expressions.
    "for (;;) /^(a+)+$/.test('a'.repeat(40) + 'b')",
    "for (;;) /(x+x+)+y/.exec('x'.repeat(40))",
    "for (;;) 'a'.repeat(1e5).replace(/(a*)*b/g, '')",
    "for (;;) 'a'.repeat(50).split(/(a|aa)+$b/)",
    "for (;;) /^(([a-z])+.)+[A-Z]([a-z])+$/u.test('a'.repeat(40))",
    "'aaa'.replace(/a/g, () => { for (;;); })",
    // Promises.
    "(async () => { for (;;) await 0 })()",
    "f = () => Promise.resolve().then(f); f()",
    "f = async () => { await 0; await f() }; f()",
    "new Promise(r => r({then(g) { g(this) }}))",
    "function f() { new Array(1000).fill(1); Promise.resolve().then(f) } f(); 5",
    "Promise.all((function* () { for (;;) yield 0 })())",
    "Promise.race({[Symbol.iterator]() { for (;;); }})",
    "(async () => { for await (const x of (async function* () { for (;;) yield 1 })()); })()",
    // Exceptions and rejections.
    "throw {toString() { for (;;); }}",
    "throw {get line() { for (;;); }}",
    "throw new Proxy({}, {get() { for (;;); }})",
    "throw {get x() { for (;;); }}",
    "throw {valueOf() { for (;;); }}",
    "e = new Error; Object.defineProperty(e, 'message', {get() { for (;;); }}); throw e",
    "Promise.reject({toString() { for (;;); }})",
    "Promise.reject({get line() { for (;;); }}); 1",
    "Promise.reject(new Proxy({}, {ownKeys() { for (;;); }}))",
    "Promise.reject({valueOf() { for (;;); }}); 1",
    "(async () => { throw {[Symbol.toPrimitive]() { for (;;); }} })(); 3",
    // Generators and iterators.
    "[...(function* () { for (;;) yield 1 })()]",
    "for (const x of (function* () { for (;;) yield 1 })());",
    "const [a, ...b] = {[Symbol.iterator]: () => ({next: () => ({})})}",
    "g = (function* () { try { yield } finally { for (;;); } })(); g.next(); g.return()",
    "Array.from({[Symbol.iterator]: () => ({next: () => ({})})})",
    "new Map((function* () { for (let i = 0;; ++i) yield [i, i] })())",
    // Results that hang when they are read.
    "({get x() { for (;;); }})",
    "({toString() { for (;;); }})",
    "({valueOf() { for (;;); }})",
    "({[Symbol.toPrimitive]() { for (;;); }})",
    "new Proxy({}, {get() { for (;;); }})",
    "new Proxy({}, {ownKeys() { for (;;); }})",
    "[{get y() { for (;;); }}]",
    "Object.create({get x() { for (;;); }})",
    "new Proxy({y: 1}, {getOwnPropertyDescriptor() { for (;;); }})",
    "() => { for (;;); }",
    "async () => { for (;;) await 0 }",
    "new Proxy(function () {}, {apply() { for (;;); }})",
    "a = []; Object.defineProperty(a, 0, {get() { for (;;); }}); a",
    "a = []; a.join = () => { for (;;); }; a",
    "a = []; a.toString = () => { for (;;); }; a",
    "d = new Date; d.toISOString = () => { for (;;); }; d",
    "d = new Date; d.toJSON = () => { for (;;); }; d",
    "class A { static get x() { for (;;); } } A",
    // Conversions within the script.
    "+{valueOf() { for (;;); }}",
    "`${{toString() { for (;;); }}}`",
    "1 + {[Symbol.toPrimitive]() { for (;;); }}",
    "({}) instanceof {[Symbol.hasInstance]() { for (;;); }}",
    // Sorting and JSON.
    "[3, 1, 2].sort(() => { for (;;); })",
    "new Int32Array(9).sort(() => { for (;;); })",
    "a = Array.from({length: 1e5}, (_, i) => -i); for (;;) [...a].sort()",
    "JSON.stringify({toJSON() { for (;;); }})",
    "JSON.stringify({get x() { for (;;); }})",
    "JSON.stringify(1, () => { for (;;); })",
    "JSON.parse('[1]', () => { for (;;); })",
    // Long native calls and much memory.
    "a = []; for (;;) a.push(new Array(1000).fill(a.length))",
    "a = []; for (;;) a.push('x'.repeat(1e6) + a.length)",
    "a = [1]; for (const x of a) a.push(x)",
    "for (;;) new Uint8Array(1e9).fill(1)",
    "for (;;) try { new Array(1e8).fill(0).map(x => x) } catch {}",
    "for (;;) 'ß'.repeat(1e6).toUpperCase()",
    "a = []; function f() { a.push(new Array(1000).fill(1)); Promise.resolve().then(f) } f()",
    // Sleeping, and code that is not JavaScript.
    R"(m = new WebAssembly.Memory({initial: 1, maximum: 1, shared: true})
       Atomics.wait(new Int32Array(m.buffer), 0, 0))",
    R"(new WebAssembly.Instance(new WebAssembly.Module(new Uint8Array([0, 97, 115, 109, 1, 0, 0, 0, 1, 4, 1,
        96, 0, 0, 3, 2, 1, 0, 8, 1, 0, 10, 9, 1, 7, 0, 3, 64, 12, 0, 11, 11]))))",
    // What the host offers.
    "for (;;) utils.localize('x')",
    "for (;;) utils.fileExists('x')",
    "for (;;) utils.base64Encode('x'.repeat(1e6))",
    "for (;;) utils.markdownToHTML('*a '.repeat(1e5))",
    "for (;;) helper()",
    "helper({get x() { for (;;); }})",
    "utils.log({toString() { for (;;); }, get x() { throw 1 }})",
    "for (;;) try { utils.log({get x() { for (;;); }}) } catch {}",
    "utils.writeToFile({toString() { for (;;); }}, '')",
    "utils.request('http://[', 'GET', {get x() { for (;;); }})",
    "for (;;) utils.log({toString() { utils.log(this) }, get x() { throw 1 }})",
};

/// Reads a value in every way that can run code of the script.
void readWholly(const JSValue& value)
{
    (void)value.toString();
    (void)value.line();
    (void)value.toDouble();
    (void)value.toScriptValue();
    (void)value.toArray();
    (void)value.toDictionary();
    (void)value.property(u"x"_s);
    (void)value.call();
}

class Limits : public testing::Test {
protected:
    Limits()
    {
        plugin.exceptionHandler = [this](const JSValue& exception) {
            readWholly(exception);
            exceptions += exception.toString().value_or(u"?"_s);
        };
    }

    QStringList exceptions;
    JavaScriptPlugin plugin;
};

TEST_F(Limits, EndEveryScriptAndEveryReadingOfItsValues)
{
    const quor::test::TestLog log;
    plugin.timeLimit = std::chrono::milliseconds(25);
    plugin.memoryLimit = qint64(300) << 20;
    const ScriptValue::Map helpers{
        {u"helper"_s, ScriptValue::Function([](const auto&) { return ScriptValue(); })}};
    for (const char* script : hangingScripts) {
        exceptions.clear();
        if (const auto result = plugin.execute(QString::fromUtf8(script), {}, helpers))
            readWholly(*result);
        EXPECT_EQ(exceptions.filter(u"exceeded"_s).size(), 1) << script;
        EXPECT_THAT(exceptions.value(exceptions.size() - 1), AnyOf(exceedsTime, exceedsMemory)) << script;
    }
}

TEST_F(Limits, ApplyToEachRunAndLeaveTheOthersAlone)
{
    plugin.timeLimit = std::chrono::milliseconds(200);
    const auto function = plugin.execute(
        u"(n, wait) => { for (const end = Date.now() + wait; Date.now() < end;); return n }"_s);
    ASSERT_TRUE(function);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(function->call({i, 60})->toDouble(), i);
    EXPECT_FALSE(function->call({1, 60'000}));
    EXPECT_EQ(exceptions, QStringList{exceedsTime});
    EXPECT_FALSE(function->call({1, 0}) || function->toString());
    EXPECT_TRUE(function->isObject());
    EXPECT_EQ(exceptions.size(), 1);
    EXPECT_EQ(plugin.execute(u"1 + 1"_s)->toString(), u"2"_s);

    // Waiting for a helper is not the script's time.
    const ScriptValue::Function wait = [](const auto&) {
        poll(nullptr, 0, 300);
        return ScriptValue();
    };
    EXPECT_TRUE(plugin.execute(u"helper()"_s, {}, {{u"helper"_s, wait}}));

    EXPECT_FALSE(plugin.execute(
        u"i = new Int32Array(new WebAssembly.Memory({initial: 1, maximum: 1, shared: true}).buffer);"
        "for (const end = Date.now() + 4000; Date.now() < end;) Atomics.wait(i, 0, 0, 1)"_s));
    plugin.timeLimit = std::chrono::milliseconds::max();
    EXPECT_TRUE(plugin.execute(u"1"_s));

    plugin.timeLimit.reset();
    plugin.memoryLimit = 64 << 20;
    EXPECT_TRUE(plugin.execute(u"for (let i = 0; i < 1e5; ++i) new Array(1000).fill(i)"_s));
    exceptions.clear();
    EXPECT_FALSE(plugin.execute(u"a = []; for (;;) a.push(new Array(1000).fill(1))"_s));
    EXPECT_EQ(exceptions, QStringList{exceedsMemory});
}

TEST_F(Limits, BoundNestedCallsOfHostAndScript)
{
    const quor::test::TestLog log;
    plugin.timeLimit = std::chrono::minutes(1);
    const auto result = plugin.execute(
        u"n = 0; utils.log({get x() { throw 1 }, toString() { ++n; utils.log(this); return 'x' }}); n"_s);
    ASSERT_TRUE(result);
    EXPECT_GT(result->toDouble(), 1);
    EXPECT_LE(result->toDouble(), 64);
}

/// The processes that this one, or another, has started.
QList<pid_t> childrenOf(pid_t process)
{
    const QString folder = u"/proc/%1/task/"_s.arg(process);
    QList<pid_t> children;
    for (const QString& thread : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        for (const QByteArray& child : quor::test::readFile(folder + thread + u"/children"_s).split(' '))
            if (const pid_t number = child.toInt())
                children += number;
    }
    return children;
}

TEST_F(Limits, SurviveTheEndOfTheProcess)
{
    plugin.timeLimit = std::chrono::minutes(10);
    const QList<pid_t> others = childrenOf(getpid());
    const ScriptValue::Function kill = [&](const ScriptValue::List& arguments) {
        for (const pid_t child : childrenOf(getpid()))
            if (!others.contains(child))
                ::kill(child, static_cast<int>(*arguments.at(0).as<double>()));
        return ScriptValue();
    };
    const ScriptValue::Map helpers{{u"kill"_s, kill}};
    EXPECT_FALSE(plugin.execute(u"kill(%1); for (;;);"_s.arg(SIGKILL), {}, helpers));
    EXPECT_EQ(exceptions,
        QStringList{
            u"Error: The script's process ended unexpectedly (signal 9), for instance because there was no "
            "memory left."_s});
    plugin.timeLimit = std::chrono::milliseconds(50);
    EXPECT_FALSE(plugin.execute(u"kill(%1); for (;;);"_s.arg(SIGSTOP), {}, helpers));
    EXPECT_EQ(exceptions.value(1), exceedsTime);
    EXPECT_EQ(childrenOf(getpid()), others);
}

TEST_F(Limits, EndWithTheApplication)
{
    const QTemporaryDir folder;
    quor::test::writeFile(folder.filePath(u"plugin.js"_s), "utils.writeToFile('started', ''); for (;;);");
    QProcess application;
    application.start(QStringLiteral(QUOR_PLUGIN), {folder.path(), u"--time-limit"_s, u"1000"_s});
    ASSERT_TRUE(quor::test::waitFor([&] { return QFile::exists(folder.filePath(u"started"_s)); }));
    const QList<pid_t> hosts = childrenOf(static_cast<pid_t>(application.processId()));
    ASSERT_EQ(hosts.size(), 1);
    application.kill();
    application.waitForFinished();
    EXPECT_TRUE(quor::test::waitFor([&] {
        const QByteArray state = quor::test::readFile(u"/proc/%1/stat"_s.arg(hosts.first()));
        return state == "none" || state.contains(") Z"); // a zombie if nobody waits for orphans here
    }));
}

TEST_F(Limits, GiveTheProcessNoFilesOfTheApplication)
{
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    plugin.timeLimit = std::chrono::minutes(1);
    const auto result = plugin.execute(u"[]"_s);
    ASSERT_TRUE(result);
    close(pipe[1]);
    pollfd end{pipe[0], POLLIN, 0};
    constexpr int milliseconds = 5000;
    EXPECT_EQ(poll(&end, 1, milliseconds), 1) << "the writing end is still open";
    close(pipe[0]);
}

TEST(LimitsOfMovedKits, NeedTheProgramBesideTheKit)
{
    const QTemporaryDir kit;
    const QString program = kit.filePath(u"bin/quor-plugin"_s);
    const QString host = kit.filePath(u"libexec/quor/quor-plugin-host"_s);
    quor::test::writeFile(kit.filePath(u"plugin.js"_s), "6 * 7");
    ASSERT_TRUE(QDir().mkpath(QFileInfo(program).path()) && QDir().mkpath(QFileInfo(host).path()));
    ASSERT_TRUE(QFile::copy(QStringLiteral(QUOR_PLUGIN), program));
    const auto run = [&] {
        QProcess process;
        process.start(program, {kit.path(), u"--time-limit"_s, u"5"_s});
        process.waitForFinished();
        return (process.readAllStandardOutput() + process.readAllStandardError()).toStdString();
    };
    EXPECT_THAT(run(), testing::HasSubstr("needs the program quor-plugin-host, which is not installed"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(QUOR_PLUGIN_HOST), host));
    EXPECT_EQ(run(), "42\n");
    quor::test::writeFile(host, "#!/bin/sh\nexit 3\n");
    EXPECT_THAT(run(), testing::HasSubstr("another version of the kit"));
}

} // namespace
