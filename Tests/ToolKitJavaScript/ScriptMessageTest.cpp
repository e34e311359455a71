// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/ScriptMessage.h"

#include <gtest/gtest.h>

namespace {

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

TEST(ScriptMessage, RefusesBytesThatAreNoMessage)
{
    const auto numberOf = [](const ScriptValue::Function&) { return quint32(7); };
    const auto functionOf = [](quint32 number) {
        return ScriptValue::Function([number](const auto&) { return static_cast<double>(number); });
    };
    const ScriptMessage message{ScriptOperation::helper,
        {u"ä\0"_s, true, nullptr, ScriptValue(), 0.5, ScriptValue::List{1},
            ScriptValue::Map{{u"k"_s, u""_s}}}};
    const QByteArray bytes = message.encoded(numberOf);
    const auto copy = ScriptMessage::decoded(bytes, {});
    ASSERT_TRUE(copy && copy->operation == ScriptOperation::helper);
    EXPECT_EQ(plainText(copy->values), plainText(message.values));
    for (qsizetype size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(ScriptMessage::decoded(bytes.first(size), {})) << size;
    EXPECT_FALSE(ScriptMessage::decoded(bytes + '\0', {}));
    EXPECT_FALSE(ScriptMessage::decoded("\x7f" + bytes.sliced(1), {}));

    const auto withFunction = ScriptMessage{
        ScriptOperation::run, {ScriptValue::Function([](const auto& list) {
            return list;
        })}}.encoded(numberOf);
    EXPECT_FALSE(ScriptMessage::decoded(withFunction, {}));
    const auto functions = ScriptMessage::decoded(withFunction, functionOf);
    EXPECT_EQ(*(*functions->values.at(0).as<ScriptValue::Function>())({}).as<double>(), 7);

    QByteArray nested(1, '\0');
    for (int i = 0; i < 100'000; ++i)
        nested += QByteArray("\x06\x01\x00\x00\x00", 5);
    EXPECT_FALSE(ScriptMessage::decoded(nested + '\0', {}));
    EXPECT_FALSE(ScriptMessage::decoded(QByteArray("\x00\x06\xff\xff\xff\xff", 6), {}));
    EXPECT_FALSE(
        ScriptMessage::decoded(QByteArray("\x00\x06\x00\x00\x40\x00", 6) + QByteArray(1 << 22, '\0'), {}))
        << "four million values";
}

} // namespace
