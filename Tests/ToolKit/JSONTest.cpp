// SPDX-License-Identifier: MIT
#include "Support/TestLog.h"
#include "ToolKit/Data/JSON/JSONHelper.h"

#include <QJsonArray>

#include <gmock/gmock.h>

#include <limits>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;

namespace {

struct Task {
    QString name;
    std::optional<std::uint64_t> color;
    std::vector<double> times;

    friend bool operator==(const Task&, const Task&) = default;
};

struct Members {
    std::int8_t tiny = 0;
    unsigned char octet = 0;
    qint16 small = 0;
    ushort port = 0;
    int count = 0;
    uint mask = 0;
    long offset = 0;
    qlonglong wide = 0;
    qulonglong widest = 0;
    float ratio = 0;
    QStringList names;
    QList<int> numbers;
    std::vector<bool> flags;
    QByteArray bytes;

    friend bool operator==(const Members&, const Members&) = default;
};

} // namespace

template <>
struct quor::toolkit::JSONFields<Members> {
    static constexpr auto fields
        = std::tuple(jsonField("tiny", &Members::tiny), jsonField("octet", &Members::octet),
            jsonField("small", &Members::small), jsonField("port", &Members::port),
            jsonField("count", &Members::count), jsonField("mask", &Members::mask),
            jsonField("offset", &Members::offset), jsonField("wide", &Members::wide),
            jsonField("widest", &Members::widest), jsonField("ratio", &Members::ratio),
            jsonField("names", &Members::names), jsonField("numbers", &Members::numbers),
            jsonField("flags", &Members::flags), jsonField("bytes", &Members::bytes));
};

template <>
struct quor::toolkit::JSONFields<Task> {
    static constexpr auto fields = std::tuple(
        jsonField("name", &Task::name), jsonField("color", &Task::color), jsonField("times", &Task::times));
};

namespace {

template <typename T>
std::optional<T> decode(const QByteArray& text)
{
    return JSONDecoder().decode<T>(text);
}

QByteArray nested(qsizetype levels)
{
    return QByteArray(levels, '[') + QByteArray(levels, ']');
}

TEST(JSONDecoder, TakesNumbersThatTheTypeHolds)
{
    const struct {
        const char* text;
        std::optional<double> real;
        std::optional<std::uint64_t> natural;
        std::optional<std::int64_t> integer;
    } cases[] = {{"16711680.0", 16711680, 16711680, 16711680}, {"1.5", 1.5, {}, {}}, {"-1", -1, {}, -1},
        {"9223372036854775808", 9223372036854775808.0, 9223372036854775808U, {}},
        {"-9223372036854775808", -9223372036854775808.0, {}, std::numeric_limits<std::int64_t>::min()},
        {"18446744073709551615709551615", 1.8446744073709552e28, {}, {}}, {"1e309", {}, {}, {}},
        {"1e-400", 0, 0, 0}, {"\"1\"", {}, {}, {}}};
    for (const auto& c : cases) {
        EXPECT_EQ(decode<double>(c.text), c.real) << c.text;
        EXPECT_EQ(decode<std::uint64_t>(c.text), c.natural) << c.text;
        EXPECT_EQ(decode<std::int64_t>(c.text), c.integer) << c.text;
    }
}

TEST(JSONCoding, TakesMembersOfEveryWidthAndKind)
{
    const QByteArray json
        = R"({"tiny":-128,"octet":255,"small":-32768,"port":65535,"count":-2147483648,"mask":4294967295,)"
          R"("offset":-9223372036854775808,"wide":9223372036854775807,"widest":18446744073709551615,)"
          R"("ratio":0.5,"names":["a","\u00fc"],"numbers":[1,-2],"flags":[true,false],"bytes":"AP+A"})";
    const Members members{-128, 255, -32768, 65535, std::numeric_limits<int>::min(), 4294967295,
        std::numeric_limits<long>::min(), std::numeric_limits<qlonglong>::max(),
        std::numeric_limits<qulonglong>::max(), 0.5F, {u"a"_s, u"\u00fc"_s}, {1, -2}, {true, false},
        QByteArray("\0\xff\x80", 3)};
    EXPECT_EQ(decode<Members>(json), members);
    EXPECT_EQ(JSONEncoder().encode(members), QByteArray(json).replace("\\u00fc", "\u00fc"));

    const char* const refused[][3] = {
        {"-128", "-129", "The number -129 is not an integer of 8 bits. (at tiny)"},
        {"255", "256", "The number 256 is not an unsigned integer of 8 bits. (at octet)"},
        {"65535", "-1", "The number -1 is not an unsigned integer of 16 bits. (at port)"},
        {"-2147483648", "2147483648", "The number 2147483648 is not an integer of 32 bits. (at count)"},
        {"-2147483648", "1.5", "The number 1.5 is not an integer of 32 bits. (at count)"},
        {"18446744073709551615", "18446744073709551616",
            "The number 18446744073709552000 is not an unsigned integer. (at widest)"},
        {"0.5", "1e39", "The number 1e+39 is not a number of 32 bits. (at ratio)"},
        {"\"a\"", "1", "Expected a text, but found a number. (at names[0])"},
        {"-2]", "2.5]", "The number 2.5 is not an integer of 32 bits. (at numbers[1])"},
        {"false", "0", "Expected true or false, but found a number. (at flags[1])"},
        {"\"AP+A\"", "\"AP+\"", "The text is not valid Base64. (at bytes)"},
        {"\"AP+A\"", "[0]", "Expected bytes in Base64, but found an array. (at bytes)"},
    };
    for (const auto& [from, to, reason] : refused) {
        DecodingError error;
        EXPECT_FALSE(JSONDecoder().decode<Members>(QByteArray(json).replace(from, to), &error)) << to;
        EXPECT_EQ(error.text().toStdString(), reason);
    }
}

TEST(JSONDecoder, RefusesWhatIsNoJSONAndSaysWhy)
{
    const QByteArray cases[] = {"", "{", "[1,]", "{a:1}", "[1] 2", "01", "NaN", "// c\n1", "\"\t\"",
        R"("\ud800")", R"("\udc00\ud800")", "\"\xff\"", "\"\xc0\x80\"", "\"\xed\xa0\x80\"", "\xef\xbb\xbf[]",
        QByteArray("[]\0", 3)};
    for (const auto& text : cases) {
        DecodingError error;
        EXPECT_FALSE(JSONDecoder().decode<QJsonValue>(text, &error)) << text.toHex().constData();
        EXPECT_EQ(error.kind, DecodingError::Kind::dataCorrupted);
        EXPECT_TRUE(error.description.startsWith(u"The data is not valid: "_s)) << qPrintable(error.text());
    }
    EXPECT_EQ(decode<QString>("\"\\u00fc\\ud83d\\ude00\\u0000\xc3\xad\xed\x9f\xbf\""),
        QString(u"\u00fc\U0001F600"_s + QChar(0) + u"\u00ed\ud7ff"_s));
}

TEST(JSONDecoder, StopsAtTheFirstFieldThatFails)
{
    DecodingError error;
    EXPECT_FALSE(JSONDecoder().decode<Task>("{\"times\":[0,null],\"color\":-1,\"name\":\"\"}", &error));
    EXPECT_EQ(error.text(), u"The number -1 is not an unsigned integer. (at color)");
}

TEST(JSONDecoder, TheLastOfDuplicateMembersCounts)
{
    const Task task{u"b"_s, std::nullopt, {2}};
    EXPECT_EQ(
        decode<Task>(
            "{\"name\":1,\"color\":7,\"times\":[1],\"x\":{},\"times\":[2],\"color\":null,\"name\":\"b\"}"),
        task);
    EXPECT_EQ(decode<Task>("{\"name\":\"b\",\"times\":[],\"name\":1}"), std::nullopt);
    using Numbers = QHash<QString, double>;
    EXPECT_EQ(decode<Numbers>("{\"a\":\"\",\"b\":1,\"a\":2}"), (Numbers{{u"a"_s, 2}, {u"b"_s, 1}}));
}

TEST(JSONDecoder, NeitherDepthNorSizeIsAnAttack)
{
    EXPECT_TRUE(decode<QJsonValue>(nested(maximumJSONDepth)));
    EXPECT_FALSE(decode<QJsonValue>(nested(maximumJSONDepth + 1)));
    constexpr qsizetype size = qsizetype(64) << 20;
    EXPECT_FALSE(decode<QJsonValue>(QByteArray(size, '[')));
    EXPECT_FALSE(decode<Task>("{\"other\":" + nested(size / 2) + '}'));
}

TEST(JSONEncoder, WritesCompactlyAndLeavesAbsentFieldsOut)
{
    EXPECT_EQ(JSONEncoder().encode(Task{u"\"\n\u00fc\U0001F600"_s, {}, {-300, 0.5, -0.0, 1e300}}),
        "{\"name\":\"\\\"\\n\u00fc\U0001F600\",\"times\":[-300,0.5,-0.0,1e300]}");
    EXPECT_EQ(JSONEncoder().encode(QString(QChar(0xD800))), "\"\uFFFD\"");
}

TEST(JSONEncoder, RefusesWhatCouldNotBeReadBack)
{
    EncodingError error;
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(JSONEncoder().encode(Task{{}, {}, {1, infinity}}, &error));
    EXPECT_EQ(error.description, u"A number is not finite."_s);
    const auto deepest = decode<QJsonValue>(nested(maximumJSONDepth)).value();
    EXPECT_EQ(JSONEncoder().encode(deepest), nested(maximumJSONDepth));
    EXPECT_FALSE(JSONEncoder().encode(QJsonValue(QJsonArray{deepest}), &error));
    EXPECT_EQ(error.description, u"The value is nested too deeply."_s);
}

TEST(JSONEncoder, ValuesComeBackAsTheyWere)
{
    for (const auto& text :
        {u""_s, u"\ufeff\ufeffa"_s, u"\u0000\u007f\u0080\\/\""_s, QString(1000, QChar(0x1F4))}) {
        const QHash<QString, QString> record{{text, text}};
        EXPECT_EQ((decode<QHash<QString, QString>>(JSONEncoder().encode(record).value())), record);
    }
    const QByteArray json = "{\"\":[null,true,-9223372036854775808,9007199254740993,0.1,1e22,\"\xc3\xbc\"]}";
    EXPECT_EQ(JSONEncoder().encode(decode<QJsonValue>(json).value()), json);
}

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
