// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/RecordCoding.h"
#include "ToolKit/Data/JSONDecoder.h"
#include "ToolKit/Data/JSONEncoder.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor;
using toolkit::DecodingError;
using toolkit::JSONDecoder;
using toolkit::JSONEncoder;
using Action = GroupStorage::Action;
using Entry = MenuEntry::Entry;

namespace {

const char oneKey[] = "Invalid number of keys found, expected one.";

const QByteArray status
    = R"({"expectedWorkingTime":28800,"nonWorkingTime":0.5,"inactiveTotalTimeToday":-1,"trackerActive":true,)"
      R"("activeColor":16711680.0,"activeStartTimes":[1700000000.5,1700000001],"taskName":"Büro",)"
      R"("menuBarShowActiveTask":true,"menuBarShowDayProgress":false,"menuBarShowRunningTimer":true,)"
      R"("menuBarShowDailyTotal":false})";

const QByteArray row
    = R"({"entry":{"_0":{"label":"Design","hotkey":"","iconName":"play","color":16711680,"isTitle":false,)"
      R"("action":{"start":{"_0":"T1"}}}}})";

/// The error's text; empty if it decodes.
template <typename Record>
std::string reason(const QByteArray& text)
{
    DecodingError error;
    return JSONDecoder().decode<Record>(text, &error) ? "" : error.text().toStdString();
}

template <typename Record>
void expectRoundTrip(const Record& record)
{
    const auto text = JSONEncoder().encode(record);
    ASSERT_TRUE(text);
    EXPECT_EQ(JSONDecoder().decode<Record>(*text), record) << text->constData();
}

TEST(RecordCoding, StatusRecord)
{
    const auto record = JSONDecoder().decode<MenubarStatusItemData>(status);
    ASSERT_TRUE(record);
    EXPECT_EQ(*record,
        (MenubarStatusItemData{28800, 0.5, -1, true, 0xFF0000, {1700000000.5, 1700000001}, u"Büro"_s, true,
            false, true, false}));
    expectRoundTrip(*record);
    expectRoundTrip(MenubarStatusItemData{});
}

TEST(RecordCoding, StatusRecordNeedsEachFieldInItsType)
{
    const struct {
        const char* field;
        const char* value;
        const char* reason; ///< empty where the record is still taken
    } cases[] = {
        {"expectedWorkingTime", "\"1\"", "Expected a number, but found a text."},
        {"expectedWorkingTime", "null", "Expected a number, but found null."},
        {"nonWorkingTime", "true", "Expected a number"},
        {"inactiveTotalTimeToday", "1e999", "too "},
        {"trackerActive", "1", "Expected true or false, but found a number."},
        {"activeColor", "-1", "is not an unsigned integer"},
        {"activeColor", "0.5", "is not an unsigned integer"},
        {"activeColor", "1e20", "is not an unsigned integer"},
        {"activeColor", "\"red\"", "Expected an unsigned integer, but found a text."},
        {"activeColor", "null", ""},
        {"activeColor", "-0", ""},
        {"activeStartTimes", "null", "Expected an array"},
        {"activeStartTimes", "[1,[]]", "(at activeStartTimes[1])"},
        {"activeStartTimes", "[]", ""},
        {"taskName", "null", ""},
        {"taskName", "{}", "Expected a text, but found an object."},
        {"menuBarShowDailyTotal", "0", "Expected true or false"},
    };
    for (const auto& c : cases) {
        auto members = JSONDecoder().decode<QHash<QString, QJsonValue>>(status).value();
        members.remove(QString::fromLatin1(c.field));
        QByteArray text = JSONEncoder().encode(members).value();
        text.replace(0, 1, QByteArray("{\"") + c.field + "\":" + c.value + ',');
        const std::string actual = reason<MenubarStatusItemData>(text);
        EXPECT_EQ(actual.empty(), *c.reason == '\0') << text.constData();
        EXPECT_THAT(actual, testing::HasSubstr(c.reason));
    }
    for (const auto& [name, value] :
        JSONDecoder().decode<QJsonObject>(status)->toVariantMap().asKeyValueRange()) {
        auto members = *JSONDecoder().decode<QJsonObject>(status);
        members.remove(name);
        const bool isOptional = name == u"activeColor"_s || name == u"taskName"_s;
        EXPECT_EQ(reason<MenubarStatusItemData>(*JSONEncoder().encode(members)).empty(), isOptional)
            << qPrintable(name);
    }
}

TEST(RecordCoding, RowsInTheirWireForm)
{
    const std::pair<MenuEntry, QByteArray> cases[] = {
        {{Entry{u"Design"_s, {}, u"play"_s, 0xFF0000, false, {Entry::Action::Start{u"T1"_s}}}}, row},
        {{MenuEntry::AdjustStart{u"T1"_s, 1700000000.5}}, R"({"adjustStart":{"_0":"T1","_1":1700000000.5}})"},
        {{MenuEntry::StopPast{u"T1"_s}}, R"({"stopPast":{"_0":"T1"}})"},
        {{MenuEntry::Search{}}, R"({"search":{}})"},
        {{MenuEntry::Separator{}}, R"({"separator":{}})"},
    };
    for (const auto& [entry, text] : cases) {
        EXPECT_EQ(JSONDecoder().decode<MenuEntry>(text), entry) << text.constData();
        EXPECT_EQ(JSONEncoder().encode(entry), text);
    }
    const std::pair<Entry::Action, QByteArray> actions[] = {
        {{Entry::Action::Stop{u"T1"_s}}, R"({"stop":{"_0":"T1"}})"},
        {{Entry::Action::Show{}}, R"({"show":{}})"},
        {{Entry::Action::Quit{}}, R"({"quit":{}})"},
        {{Entry::Action::None{}}, R"({"none":{}})"},
    };
    for (const auto& [action, text] : actions) {
        EXPECT_EQ(JSONDecoder().decode<Entry::Action>(text), action) << text.constData();
        EXPECT_EQ(JSONEncoder().encode(action), text);
    }
}

TEST(RecordCoding, ActionsInTheirWireForm)
{
    const std::pair<Action, QByteArray> cases[] = {
        {{Action::StopTimer{u"T1"_s, -300}}, R"({"stopTimer":{"taskID":"T1","delta":-300}})"},
        {{Action::AdjustTimer{u"T1"_s, -900}}, R"({"adjustTimer":{"taskID":"T1","delta":-900}})"},
        {{Action::StartTimer{u"T1"_s}}, R"({"startTimer":{"taskID":"T1"}})"},
        {{Action::None{}}, R"({"none":{}})"},
        {{Action::OpenMenu{}}, R"({"openMenu":{}})"},
        {{Action::OpenQuor{}}, R"({"openQuor":{}})"},
        {{Action::QuitQuor{}}, R"({"quitQuor":{}})"},
        {{Action::RequestMenuEntries{}}, R"({"requestMenuEntries":{}})"},
    };
    for (const auto& [action, text] : cases) {
        EXPECT_EQ(JSONDecoder().decode<Action>(text), action) << text.constData();
        EXPECT_EQ(JSONEncoder().encode(action), text);
    }
    EXPECT_THAT(reason<Action>(R"({"stopTimer":{"taskID":"T1"}})"), testing::HasSubstr("\"delta\""));
}

TEST(RecordCoding, AUnionHasOneKnownKeyWithAnObject)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"({"search":{},"other":1})", ""},
        {R"({"search":1,"search":{}})", ""},
        {R"({"search":{"_0":1}})", ""},
        {R"({})", oneKey},
        {R"({"search":{},"separator":{}})", oneKey},
        {R"({"search":{},"separator":null})", oneKey},
        {R"({"Search":{}})", oneKey},
        {R"({"search":true})", "Expected an object, but found true or false. (at search)"},
        {R"({"search":null})", "Expected an object, but found null. (at search)"},
        {R"("search")", "Expected an object, but found a text."},
        {R"({"stopPast":{"0":"T1"}})", "There is no value for the key \"_0\". (at stopPast)"},
        {R"({"adjustStart":{"_1":1}})", "There is no value for the key \"_0\". (at adjustStart)"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(reason<MenuEntry>(text), expected) << text;
    DecodingError error;
    EXPECT_FALSE(JSONDecoder().decode<Action>("{}", &error));
    EXPECT_EQ(error.kind, DecodingError::Kind::typeMismatch);
    EXPECT_EQ(error.description.toStdString(), oneKey);
}

TEST(RecordCoding, OneBadRowLosesAllRows)
{
    using Rows = std::vector<MenuEntry>;
    EXPECT_EQ(JSONDecoder().decode<Rows>('[' + row + ",{\"search\":{}}]")->size(), 2U);
    EXPECT_EQ(JSONDecoder().decode<Rows>("[]"), Rows());
    auto withoutHotkey = row;
    withoutHotkey.replace(R"("hotkey":"",)", "");
    EXPECT_EQ(reason<Rows>('[' + row + ',' + withoutHotkey + ']'),
        "There is no value for the key \"hotkey\". (at [1].entry._0)");
    auto negative = row;
    negative.replace("16711680", "-16711680");
    EXPECT_EQ(reason<Rows>('[' + negative + ']'),
        "The number -1.67117e+07 is not an unsigned integer. (at [0].entry._0.color)");
    auto badAction = row;
    badAction.replace("start", "begin");
    EXPECT_EQ(reason<Rows>('[' + badAction + ']'), std::string(oneKey) + " (at [0].entry._0.action)");
}

TEST(RecordCoding, NothingCutShortIsTaken)
{
    for (qsizetype length = 0; length < status.size(); ++length)
        EXPECT_NE(reason<MenubarStatusItemData>(status.first(length)), "") << length;
    const QByteArray rows = '[' + row + ']';
    for (qsizetype length = 0; length < rows.size(); ++length)
        EXPECT_NE(reason<std::vector<MenuEntry>>(rows.first(length)), "") << length;
}

} // namespace
