// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSONWriter.h"

#include "ToolKit/Data/JSONValue.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <QStringEncoder>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

// The writer below reserves six bytes for each one, counted in 32 bits.
constexpr qsizetype longestText = 0x20000000;

constexpr double endOfExactIntegers = 9007199254740992.0; // 2^53

} // namespace

struct JSONWriter::Output {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};
    QStringEncoder toUtf8{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
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
    const qsizetype space = output_->toUtf8.requiredSpace(value.size());
    if (space > longestText)
        return fail(u"A text is too long."_s);
    if (scratch_.size() < space)
        scratch_.resize(space);
    const char* const begin = scratch_.constData();
    const char* const end = output_->toUtf8.appendToBuffer(scratch_.data(), value);
    output_->writer.String(begin, static_cast<rapidjson::SizeType>(end - begin));
}

void JSONWriter::fail(const QString& description)
{
    if (!error_)
        error_ = EncodingError{description};
    null(); // keeps keys and values in turn, which the writer insists on
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
