// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/JavaScriptPlugin.h"
#include "Support/Files.h"
#include "Support/TestLog.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <thread>

namespace {

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

enum class Runs { inThisProcess, inItsOwn };

class JavaScriptPluginTest : public testing::TestWithParam<Runs> {
protected:
    JavaScriptPluginTest() { plugin.memoryLimit = GetParam() == Runs::inItsOwn ? qint64(2) << 30 : 0; }
    QString run(const QString& script, const ScriptValue::Map& parameters = {},
        const ScriptValue::Map& helpers = {}) const
    {
        const auto result = plugin.execute(script, parameters, helpers);
        return result ? result->toString().value_or(u"throws"_s) : u"nothing"_s;
    }

    JavaScriptPlugin plugin;
};

INSTANTIATE_TEST_SUITE_P(Both, JavaScriptPluginTest, testing::Values(Runs::inThisProcess, Runs::inItsOwn));

TEST_P(JavaScriptPluginTest, SetsTheGlobalsInTheirOrder)
{
    const ScriptValue::Map values{{u"a"_s, 1},
        {u"b"_s, ScriptValue::List{true, nullptr, ScriptValue(), u"ä\0"_s}},
        {u"c"_s, ScriptValue::Map{{u"x"_s, 0.5}}}, {u"utils"_s, 7}, {u"undefined"_s, 3},
        {u"__proto__"_s, ScriptValue::Map{{u"evil"_s, 1}}},
        {u"d"_s, ScriptValue::Map{{u"__proto__"_s, ScriptValue::Map{{u"evil"_s, 1}}}}}};
    const ScriptValue::Map helpers{{u"a"_s, ScriptValue::Function([](const ScriptValue::List& arguments) {
                                        return arguments.empty() ? throw 1 : arguments.front();
                                    })}};
    EXPECT_EQ(
        run(u"JSON.stringify([a(c), a(), typeof a.bind, b, typeof utils.log, typeof console, undefined])"_s,
            values, helpers),
        u"[{\"x\":0.5},null,\"function\",[true,null,null,\"ä\\u0000\"],\"function\",\"undefined\",null]"_s);
    EXPECT_EQ(run(u"[Object.keys(d), d.evil, d instanceof Object, typeof evil].join()"_s, values),
        u"__proto__,,true,undefined"_s);
    EXPECT_EQ(run(u"Object.defineProperty(Object.prototype, 'x', {set() {}}); Object.keys(a(c)).join()"_s,
                  values, helpers),
        u"x"_s);
    EXPECT_EQ(run(u"utils"_s, {}, {{u"utils"_s, u"mine"_s}}), u"mine"_s);
    EXPECT_EQ(run(u"left = 1; typeof left"_s), u"number"_s);
    EXPECT_EQ(run(u"typeof left"_s), u"undefined"_s);
}

TEST_P(JavaScriptPluginTest, OffersItsUtilities)
{
    const QTemporaryDir folder;
    plugin.baseURL = QUrl::fromLocalFile(folder.path());
    plugin.localization = {{u"Hello"_s, u"Hallo"_s}};
    quor::test::writeFile(folder.filePath(u"bad"_s), "\xff");
    const std::pair<QString, QString> cases[] = {
        {u"utils.writeToFile('f', '\\ufeffü\\0'); utils.contentsOfFile('f') === '\\ufeffü\\0'"_s, u"true"_s},
        {u"utils.writeToFile('g', '\\ud800'); utils.fileExists('g')"_s, u"false"_s},
        {u"[utils.fileExists('f'), utils.removeFile('f'), utils.fileExists('f')].join()"_s, u"true,,false"_s},
        {u"utils.contentsOfFile('bad')"_s, u"undefined"_s},
        {u"utils.fileExists('../' + utils)"_s, u"false"_s},
        {u"utils.base64Encode('ä') + utils.base64Encode('\\ud800') + utils.base64Encode()"_s,
            u"w6Q=dW5kZWZpbmVk"_s},
        {u"utils.base64Decode('w6Q=') + utils.base64Decode('not base64!') + utils.base64Decode('/w==')"_s,
            u"ä"_s},
        {u"utils.localize('Hello') + utils.localize('x') + utils.localize.call(null, 5)"_s, u"Hallox5"_s},
        {u"u = utils; utils = 0; f = u.localize; typeof u.request + f()"_s, u"functionundefined"_s},
        {u"utils.markdownToHTML('# A\\n\\nb **c**')"_s, u"<h1>A</h1><p>b <strong>c</strong></p>"_s},
        // No function throws, not even for arguments that cannot be converted.
        {u"bad = {toString() { throw 1 }}; Object.keys(utils).map(k => typeof utils[k](bad, bad, bad, bad)).join()"_s,
            u"undefined,boolean,undefined,undefined,string,string,string,undefined,string,object"_s},
    };
    for (const auto& [script, result] : cases)
        EXPECT_EQ(run(script), result) << script.toStdString();
}

TEST_P(JavaScriptPluginTest, PassesUncaughtExceptionsToTheHandler)
{
    QStringList exceptions;
    plugin.exceptionHandler = [&](const JSValue& exception) {
        exceptions += exception.toString().value_or(u"?"_s) + u'@'
            + QString::number(exception.line().value_or(0)) + u':'
            + QString::number(exception.column().value_or(0));
    };
    for (const QString& script :
        {u"1;\n  missing.x"_s, u"\nlet a = ;"_s, u"throw 'text'"_s, u"throw undefined"_s,
            u"throw {get line() { throw 1 }, toString() { throw 2 }}"_s, u"(function f() { f() })()"_s,
            u"throw new Proxy({}, {get() { throw 1 }, ownKeys() { throw 2 }})"_s})
        EXPECT_FALSE(plugin.execute(script));
    ASSERT_EQ(exceptions.size(), 7);
    EXPECT_TRUE(exceptions[0].startsWith(u"ReferenceError"_s) && exceptions[0].contains(u"@2:"_s))
        << exceptions[0].toStdString();
    EXPECT_TRUE(exceptions[1].startsWith(u"SyntaxError"_s) && exceptions[1].contains(u"@2:"_s))
        << exceptions[1].toStdString();
    EXPECT_EQ(exceptions[2], u"text@0:0"_s);
    EXPECT_TRUE(exceptions[5].startsWith(u"RangeError"_s));
    exceptions.clear();
    EXPECT_EQ(
        run(u"(async () => { throw 'lost' })(); Promise.reject(Symbol('s')); Promise.reject(1).catch(() => 2); 3"_s),
        u"3"_s);
    EXPECT_EQ(exceptions, (QStringList{u"lost@0:0"_s, u"Symbol(s)@0:0"_s}));
}

TEST_P(JavaScriptPluginTest, KeepsTheEngineForAsLongAsItsValues)
{
    const auto owned = std::make_shared<int>(1);
    std::optional<JSValue> function;
    plugin.localization = {{u"k"_s, u"text"_s}};
    function = plugin.execute(u"n = 0; (x) => utils.localize('k') + helper() + x + ++n"_s, {},
        {{u"helper"_s, ScriptValue::Function([owned](const auto&) { return ScriptValue(*owned); })}});
    plugin = {};
    ASSERT_TRUE(function);
    EXPECT_GT(owned.use_count(), 1);
    // The function can be called on another thread.
    std::thread([&] { EXPECT_EQ(function->call({u"x"_s})->toString(), u"text1x1"_s); }).join();
    const auto result = function->call({u"y"_s});
    function.reset();
    EXPECT_EQ(result->toString(), u"text1y2"_s);
    EXPECT_FALSE(result->call());
}

TEST_P(JavaScriptPluginTest, ReleasesItsEngineWithTheLastValue)
{
    const auto owned = std::make_shared<int>(1);
    for (const QString& script : {u"helper"_s, u"throw helper"_s, u"c = {helper}; c.c = c"_s})
        (void)plugin.execute(script, {},
            {{u"helper"_s, ScriptValue::Function([owned](const auto&) { return ScriptValue(); })}});
    EXPECT_EQ(owned.use_count(), 1);
}

TEST_P(JavaScriptPluginTest, ConvertsResultsButNoEndlessOnes)
{
    const auto json = [this](const QString& script) {
        const auto result = plugin.execute(script);
        constexpr int few = 1000;
        const auto value = result ? result->toScriptValue(few) : std::nullopt;
        return value ? plainText(*value) : u"none"_s;
    };
    EXPECT_EQ(json(u"({a: [1, , 'x', null], d: new Date(0), f() {}, s: Symbol()})"_s),
        uR"({"a":[1,null,"x",null],"d":"1970-01-01T00:00:00.000Z"})"_s);
    EXPECT_EQ(json(u"[1.5, 1e21, 3]"_s), u"[1.5,1e21,3]"_s);
    for (const QString& endless : {u"a = []; a[0] = a"_s, u"a = []; for (i = 0; i < 40; ++i) a = [a, a]; a"_s,
             u"new Array(4e9)"_s, u"({get x() { throw 1 }})"_s,
             u"p = new Proxy({}, {get: () => p, ownKeys: () => ['x'],"
             " getOwnPropertyDescriptor: () => ({enumerable: true, configurable: true})})"_s})
        EXPECT_EQ(json(endless), u"none"_s) << endless.toStdString();
}

TEST_P(JavaScriptPluginTest, RefusesToCopyTextsThatAreTooLong)
{
    QStringList exceptions;
    plugin.exceptionHandler
        = [&](const JSValue& exception) { exceptions += exception.toString().value_or(u"?"_s); };
    for (const QString& script :
        {u"'x'.repeat(64 * 2 ** 20 + 1)"_s, u"t = 'x'.repeat(40 * 2 ** 20); ({a: t, b: t})"_s,
            u"({['x'.repeat(64 * 2 ** 20 + 1)]: 1})"_s, u"s = 'x'.repeat(64 * 2 ** 20 + 1); [s]"_s}) {
        exceptions.clear();
        const auto result = plugin.execute(script);
        ASSERT_TRUE(result) << script.toStdString();
        EXPECT_FALSE(result->toScriptValue());
        EXPECT_EQ(exceptions,
            QStringList{u"Error: The texts of a value have more than 64 Mi characters together."_s});
    }
    EXPECT_EQ(run(u"helper(s = 'x'.repeat(64 * 2 ** 20), s).length + utils.localize(s + 1).length"_s, {},
                  {{u"helper"_s, ScriptValue::Function([](const ScriptValue::List& arguments) {
                        return arguments.at(1).as<QString>() ? ScriptValue() : arguments.at(0);
                    })}}),
        u"67108864"_s);
}

TEST_P(JavaScriptPluginTest, LogsWithTheNameOfTheOperation)
{
    const quor::test::TestLog log;
    (void)plugin.execute(u"utils.log('text'); utils.log([1, {a: 2}]); utils.log({b: [3]}); utils.log(null);"
                         " utils.log({get x() { throw 1 }}); throw 'up'"_s);
    QStringList lines = QString::fromUtf8(log.text()).trimmed().split(u'\n');
    lines.replaceInStrings(QRegularExpression(u"^.*\\+0000: |:\\d+(?=: )"_s), QString());
    EXPECT_EQ(lines,
        (QStringList{u"JavaScriptUtils.log: text"_s, u"JavaScriptUtils.log: [1,{\"a\":2}]"_s,
            u"JavaScriptUtils.log: {\"b\":[3]}"_s, u"JavaScriptUtils.log: null"_s,
            u"JavaScriptUtils.log: [object Object]"_s, u"JavaScriptPlugin.execute: up"_s}));
}

} // namespace
