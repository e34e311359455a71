// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/RecordCoding.h"
#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"

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
      R"("activeColor":16711680,"activeStartTimes":[1700000000.5,1700000001],"taskName":"Büro",)"
      R"("menuBarShowActiveTask":true,"menuBarShowDayProgress":false,"menuBarShowRunningTimer":true,)"
      R"("menuBarShowDailyTotal":false})";

const QByteArray row
    = R"({"entry":{"_0":{"label":"Design","hotkey":"","iconName":"play","color":16711680,"isTitle":false,)"
      R"("action":{"start":{"_0":"T1"}}}}})";

/// Returns the error's text, or an empty text if there is no error.
template <typename Record>
std::string reason(const QByteArray& text)
{
    DecodingError error;
    return JSONDecoder().decode<Record>(text, &error) ? "" : error.text().toStdString();
}

template <typename Record>
void expectForm(const Record& record, const QByteArray& text)
{
    EXPECT_EQ(JSONDecoder().decode<Record>(text), record) << text.constData();
    EXPECT_EQ(JSONEncoder().encode(record), text);
}

TEST(RecordCoding, StatusRecordNeedsEachFieldInItsType)
{
    // An empty reason means that the record is still valid.
    const std::tuple<const char*, const char*, const char*> cases[]
        = {{"expectedWorkingTime", "\"1\"", "Expected a number, but found a text."},
            {"trackerActive", "1", "Expected true or false, but found a number."},
            {"activeColor", "-1", "is not an unsigned integer"}, {"activeColor", "null", ""},
            {"activeColor", "16711680.0", ""}, {"activeStartTimes", "[1,[]]", "(at activeStartTimes[1])"},
            {"taskName", "null", ""}};
    for (const auto& [field, value, expected] : cases) {
        auto members = JSONDecoder().decode<QHash<QString, QJsonValue>>(status).value();
        members.remove(QString::fromLatin1(field));
        QByteArray text = JSONEncoder().encode(members).value();
        text.replace(0, 1, QByteArray("{\"") + field + "\":" + value + ',');
        const std::string actual = reason<MenubarStatusItemData>(text);
        EXPECT_EQ(actual.empty(), *expected == '\0') << text.constData();
        EXPECT_THAT(actual, testing::HasSubstr(expected));
    }
    const auto whole = *JSONDecoder().decode<QJsonObject>(status);
    for (const QString& name : whole.keys()) {
        auto members = whole;
        members.remove(name);
        const bool isOptional = name == u"activeColor"_s || name == u"taskName"_s;
        EXPECT_EQ(reason<MenubarStatusItemData>(*JSONEncoder().encode(members)).empty(), isOptional);
    }
}

TEST(RecordCoding, UnionsInTheirWireForm)
{
    expectForm(
        MenuEntry{Entry{u"Design"_s, {}, u"play"_s, 0xFF0000, false, {Entry::Action::Start{u"T1"_s}}}}, row);
    expectForm(MenuEntry{MenuEntry::AdjustStart{u"T1"_s, 1700000000.5}},
        R"({"adjustStart":{"_0":"T1","_1":1700000000.5}})");
    expectForm(MenuEntry{MenuEntry::StopPast{u"T1"_s}}, R"({"stopPast":{"_0":"T1"}})");
    expectForm(MenuEntry{MenuEntry::Search{}}, R"({"search":{}})");
    expectForm(MenuEntry{MenuEntry::Separator{}}, R"({"separator":{}})");

    expectForm(Entry::Action{Entry::Action::Stop{u"T1"_s}}, R"({"stop":{"_0":"T1"}})");
    expectForm(Entry::Action{Entry::Action::Show{}}, R"({"show":{}})");
    expectForm(Entry::Action{Entry::Action::Quit{}}, R"({"quit":{}})");
    expectForm(Entry::Action{Entry::Action::None{}}, R"({"none":{}})");

    expectForm(Action{Action::StopTimer{u"T1"_s, -300}}, R"({"stopTimer":{"taskID":"T1","delta":-300}})");
    expectForm(Action{Action::AdjustTimer{u"T1"_s, -900}}, R"({"adjustTimer":{"taskID":"T1","delta":-900}})");
    expectForm(Action{Action::StartTimer{u"T1"_s}}, R"({"startTimer":{"taskID":"T1"}})");
    expectForm(Action{Action::None{}}, R"({"none":{}})");
    expectForm(Action{Action::OpenMenu{}}, R"({"openMenu":{}})");
    expectForm(Action{Action::OpenQuor{}}, R"({"openQuor":{}})");
    expectForm(Action{Action::QuitQuor{}}, R"({"quitQuor":{}})");
    expectForm(Action{Action::RequestMenuEntries{}}, R"({"requestMenuEntries":{}})");
    EXPECT_THAT(reason<Action>(R"({"stopTimer":{"taskID":"T1"}})"), testing::HasSubstr("\"delta\""));
}

TEST(RecordCoding, AUnionHasOneKnownKeyWithAnObject)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"({"search":{"_0":1},"other":1})", ""},
        {R"({})", oneKey},
        {R"({"search":{},"separator":{}})", oneKey},
        {R"({"search":null})", "Expected an object, but found null. (at search)"},
        {R"({"adjustStart":{"_1":1}})", "There is no value for the key \"_0\". (at adjustStart)"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(reason<MenuEntry>(text), expected) << text;
}

TEST(RecordCoding, OneBadRowLosesAllRows)
{
    const char* const cases[][3] = {
        {R"("hotkey":"",)", "", "There is no value for the key \"hotkey\". (at [1].entry._0)"},
        {"start", "begin", "Invalid number of keys found, expected one. (at [1].entry._0.action)"},
        {"", "", ""},
    };
    for (const auto& [from, to, expected] : cases)
        EXPECT_EQ(
            reason<std::vector<MenuEntry>>("[{\"search\":{}}," + QByteArray(row).replace(from, to) + ']'),
            expected);
}

} // namespace
