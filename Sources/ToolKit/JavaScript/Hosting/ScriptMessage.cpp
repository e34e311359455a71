// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/ScriptMessage.h"

#include "ToolKit/Data/JSON/JSONValue.h"

#include <QDataStream>
#include <QIODevice>

#include <limits>
#include <type_traits>

namespace quor::toolkit {

namespace {

enum class Tag : quint8 { undefined, null, no, yes, number, text, list, map, function };

// Above the depth of a script's values are a few lists of the message itself.
constexpr int maximumDepth = maximumJSONDepth + 8;

class Writer {
public:
    Writer(QDataStream& stream, const ScriptMessage::NumberOfFunction& numberOf)
        : stream_(stream)
        , numberOf_(numberOf)
    {
    }

    void write(const ScriptValue& value)
    {
        std::visit([this](const auto& within) { writeAlternative(within); }, value.value);
    }

    void writeAlternative(std::monostate) { stream_ << Tag::undefined; }
    void writeAlternative(std::nullptr_t) { stream_ << Tag::null; }
    void writeAlternative(bool boolean) { stream_ << (boolean ? Tag::yes : Tag::no); }
    void writeAlternative(double number) { stream_ << Tag::number << number; }
    void writeAlternative(const QString& text) { stream_ << Tag::text << text; }
    void writeAlternative(const ScriptValue::List& list)
    {
        stream_ << Tag::list << static_cast<quint32>(list.size());
        for (const ScriptValue& element : list)
            write(element);
    }
    void writeAlternative(const ScriptValue::Map& map)
    {
        stream_ << Tag::map << static_cast<quint32>(map.size());
        for (const auto& [name, member] : map) {
            stream_ << name;
            write(member);
        }
    }
    void writeAlternative(const ScriptValue::Function& function)
    {
        if (function)
            stream_ << Tag::function << numberOf_(function);
        else
            stream_ << Tag::undefined;
    }

private:
    QDataStream& stream_;
    const ScriptMessage::NumberOfFunction& numberOf_;
};

/// Sets the status of the stream at the first bytes that are wrong.
class Reader {
public:
    Reader(QDataStream& stream, const ScriptMessage::FunctionOfNumber& functionOf)
        : stream_(stream)
        , functionOf_(functionOf)
        , valuesLeft_(functionOf ? std::numeric_limits<qint64>::max() : ScriptMessage::maximumCount)
    {
    }

    ScriptValue read(int depth = 0)
    {
        const auto tag = take<Tag>();
        if (stream_.status() != QDataStream::Ok || depth > maximumDepth || valuesLeft_-- <= 0)
            return invalid();
        switch (tag) {
        case Tag::undefined:
            return {};
        case Tag::null:
            return nullptr;
        case Tag::no:
            return false;
        case Tag::yes:
            return true;
        case Tag::number:
            return take<double>();
        case Tag::text:
            return take<QString>();
        case Tag::list:
            return list(depth + 1);
        case Tag::map:
            return map(depth + 1);
        case Tag::function:
            return functionOf_ ? ScriptValue(functionOf_(take<quint32>())) : invalid();
        }
        return invalid();
    }

    // Grows with the elements that are really there, not to the size that the bytes claim.
    ScriptValue::List list(int depth)
    {
        ScriptValue::List values;
        for (auto left = take<quint32>(); left > 0 && stream_.status() == QDataStream::Ok; --left)
            values.push_back(read(depth));
        return values;
    }

private:
    template <typename T>
    T take()
    {
        T value{};
        stream_ >> value;
        return value;
    }

    ScriptValue invalid()
    {
        stream_.setStatus(QDataStream::ReadCorruptData);
        return {};
    }

    ScriptValue::Map map(int depth)
    {
        ScriptValue::Map members;
        for (auto left = take<quint32>(); left > 0 && stream_.status() == QDataStream::Ok; --left) {
            auto name = take<QString>();
            members.insert_or_assign(std::move(name), read(depth));
        }
        return members;
    }

    QDataStream& stream_;
    const ScriptMessage::FunctionOfNumber& functionOf_;
    qint64 valuesLeft_;
};

template <typename T>
const T* partAt(const ScriptValue::List& values, size_t index)
{
    return index < values.size() ? values[index].as<T>() : nullptr;
}

} // namespace

QByteArray ScriptMessage::encoded(const NumberOfFunction& numberOf) const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian); // otherwise each character is swapped
    stream << operation;
    Writer(stream, numberOf).writeAlternative(values);
    return bytes;
}

std::optional<ScriptMessage> ScriptMessage::decoded(
    const QByteArray& bytes, const FunctionOfNumber& functionOf)
{
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    ScriptMessage message;
    Tag tag = Tag::undefined;
    stream >> message.operation >> tag;
    if (message.operation > ScriptOperation::request || tag != Tag::list)
        return std::nullopt;
    message.values = Reader(stream, functionOf).list(0);
    return stream.status() == QDataStream::Ok && stream.atEnd() ? std::optional(std::move(message))
                                                                : std::nullopt;
}

QString textAt(const ScriptValue::List& values, size_t index)
{
    const auto* text = partAt<QString>(values, index);
    return text ? *text : QString();
}

ScriptValue::Map mapAt(const ScriptValue::List& values, size_t index)
{
    const auto* map = partAt<ScriptValue::Map>(values, index);
    return map ? *map : ScriptValue::Map();
}

ScriptValue::List listAt(const ScriptValue::List& values, size_t index)
{
    const auto* list = partAt<ScriptValue::List>(values, index);
    return list ? *list : ScriptValue::List();
}

std::optional<quint32> numberAt(const ScriptValue::List& values, size_t index)
{
    const auto* number = partAt<double>(values, index);
    constexpr double largest = std::numeric_limits<quint32>::max();
    return number && *number >= 0 && *number <= largest ? std::optional(static_cast<quint32>(*number))
                                                        : std::nullopt;
}

} // namespace quor::toolkit
