// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONHelper.h"
#include "Support/TestLog.h"

#include <QJsonArray>

#include <gmock/gmock.h>

#include <limits>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;

namespace {

class JSONHelperTest : public testing::Test {
protected:
    [[nodiscard]] std::string log() const { return log_.text().toStdString(); }

private:
    const quor::test::TestLog log_;
};

TEST_F(JSONHelperTest, FailuresOfTypedValuesLeaveALine)
{
    EXPECT_EQ(JSONHelper::decode<double>(QByteArray("\"1\""), JSONDecoder()), std::nullopt);
    EXPECT_THAT(log(),
        testing::ContainsRegex(
            ": JSONHelper\\.decode:[0-9]+: decodeError: Expected a number, but found a text\\.\n$"));
    const std::optional<double> infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(JSONHelper::encode(infinity, JSONEncoder()), std::nullopt);
    EXPECT_THAT(log(),
        testing::ContainsRegex(": JSONHelper\\.encode:[0-9]+: encodeError: A number is not finite\\.\n$"));
}

TEST_F(JSONHelperTest, NothingAndDictionariesComeAndGoSilently)
{
    EXPECT_EQ(JSONHelper::decode<double>(std::nullopt, JSONDecoder()), std::nullopt);
    EXPECT_EQ(JSONHelper::decode<double>(QByteArray(""), JSONDecoder()), std::nullopt);
    EXPECT_EQ(JSONHelper::encode(std::optional<double>(), JSONEncoder()), std::nullopt);
    const QJsonObject dictionary{{u"a"_s, 1.5}, {u"b"_s, QJsonArray{u"x"_s, QJsonValue::Null}}};
    const auto data = JSONHelper::dataFromDictionary(dictionary);
    EXPECT_EQ(data, "{\n    \"a\": 1.5,\n    \"b\": [\n        \"x\",\n        null\n    ]\n}");
    EXPECT_EQ(JSONHelper::dictionaryFromData(*data), dictionary);
    for (const char* text : {"", "[]", "3", "{", "null"})
        EXPECT_EQ(JSONHelper::dictionaryFromData(text), std::nullopt) << text;
    EXPECT_EQ(
        JSONHelper::dataFromDictionary({{u"a"_s, std::numeric_limits<double>::quiet_NaN()}}), std::nullopt);
    EXPECT_EQ(log(), "");
}

} // namespace
