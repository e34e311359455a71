// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONWriter.h"

#include "ToolKit/Data/JSON/JSONValue.h"
#include "ToolKit/Data/JSON/RapidJSON.h"

#include <QStringEncoder>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

// RapidJSON reserves six bytes for each byte of a text, and counts them in 32 bits.
constexpr qsizetype longestText = 0x20000000;

constexpr double endOfExactIntegers = 9007199254740992.0; // 2^53

} // namespace

struct JSONWriter::Output {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};

    /// Writes a text of printable ASCII with nothing to escape, as most are, about five times as fast.
    bool plain(QStringView text)
    {
        unsigned others = 0; // without branches, so that the loop takes many characters at a time
        for (const QChar c : text) {
            const unsigned unit = c.unicode();
            others |= unsigned(unit - 0x20 >= 0x5F) | unsigned(unit == '"') | unsigned(unit == '\\');
        }
        if (others)
            return false;
        writer.RawValue("", 0, rapidjson::kStringType); // writes a comma or colon where it is due
        const auto length = static_cast<std::size_t>(text.size());
        char* const begin = buffer.Push(length + 2);
        *begin = '"';
        std::transform(
            text.begin(), text.end(), begin + 1, [](QChar c) { return static_cast<char>(c.unicode()); });
        begin[length + 1] = '"';
        return true;
    }
};

JSONWriter::JSONWriter()
    : output_(std::make_unique<Output>())
{
}

JSONWriter::~JSONWriter() = default;

bool JSONWriter::begin()
{
    if (depth_ == maximumJSONDepth)
        fail(u"The value is nested too deeply."_s);
    else if (hasFailed())
        null();
    else
        ++depth_;
    return !hasFailed();
}

bool JSONWriter::beginObject()
{
    return begin() && output_->writer.StartObject();
}

void JSONWriter::endObject()
{
    --depth_;
    output_->writer.EndObject();
}

bool JSONWriter::beginArray()
{
    return begin() && output_->writer.StartArray();
}

void JSONWriter::endArray()
{
    --depth_;
    output_->writer.EndArray();
}

void JSONWriter::key(std::string_view name)
{
    output_->writer.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
}

void JSONWriter::null()
{
    output_->writer.Null();
}

void JSONWriter::boolean(bool value)
{
    output_->writer.Bool(value);
}

void JSONWriter::number(double value)
{
    if (!std::isfinite(value))
        return fail(u"A number is not finite."_s);
    const bool isNegativeZero = value == 0 && std::signbit(value);
    if (std::abs(value) < endOfExactIntegers && value == std::trunc(value) && !isNegativeZero)
        output_->writer.Int64(static_cast<std::int64_t>(value));
    else
        output_->writer.Double(value);
}

void JSONWriter::number(std::int64_t value)
{
    output_->writer.Int64(value);
}

void JSONWriter::number(std::uint64_t value)
{
    output_->writer.Uint64(value);
}

void JSONWriter::text(QStringView value)
{
    if (output_->plain(value))
        return;
    // QString::toUtf8 would write "?" for half of a surrogate pair, which reads like a real question mark.
    const QByteArray utf8 = QStringEncoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless)(value);
    if (utf8.size() > longestText)
        return fail(u"A text is too long."_s);
    output_->writer.String(utf8.constData(), static_cast<rapidjson::SizeType>(utf8.size()));
}

void JSONWriter::fail(const QString& description)
{
    if (!error_)
        error_ = EncodingError{description};
    null(); // the writer insists on a value after each key
}

std::optional<QByteArray> JSONWriter::take(EncodingError& error)
{
    if (error_) {
        error = *error_;
        return std::nullopt;
    }
    const auto& buffer = output_->buffer;
    return QByteArray(buffer.GetString(), static_cast<qsizetype>(buffer.GetSize()));
}

} // namespace quor::toolkit
