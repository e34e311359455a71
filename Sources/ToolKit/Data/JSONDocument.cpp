// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSONDocument.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <cstring>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

using Kind = JSONNode::Kind;

namespace {

constexpr unsigned parseFlags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag
    | rapidjson::kParseFullPrecisionFlag | rapidjson::kParseValidateEncodingFlag;

constexpr std::size_t bytesPerToken = 8; // what records have on average

// The parser pairs escaped surrogates, but lets a low one pass that stands alone.
bool hasSurrogate(const char* text, std::size_t length)
{
    const char* const end = text + length;
    while (const void* lead = std::memchr(text, 0xED, static_cast<std::size_t>(end - text))) {
        text = static_cast<const char*>(lead) + 1;
        if (text != end && static_cast<unsigned char>(*text) >= 0xA0)
            return true;
    }
    return false;
}

/// Receives the parser's tokens. False ends the parse.
class TokenList {
public:
    TokenList(std::vector<JSONNode>& nodes, bool hasEscapes)
        : nodes_(nodes)
        , hasEscapes_(hasEscapes)
    {
    }

    [[nodiscard]] bool isTooDeep() const { return open_.size() > maximumJSONDepth; }

    bool Null()
    {
        nodes_.emplace_back();
        return true;
    }
    bool Bool(bool value)
    {
        append(Kind::boolean).boolean = value;
        return true;
    }
    bool Int(int value) { return Int64(value); }
    bool Uint(unsigned value) { return Uint64(value); }
    bool Int64(std::int64_t value)
    {
        if (value >= 0)
            return Uint64(static_cast<std::uint64_t>(value));
        append(Kind::negativeInteger).negativeInteger = value;
        return true;
    }
    bool Uint64(std::uint64_t value)
    {
        append(Kind::unsignedInteger).unsignedInteger = value;
        return true;
    }
    bool Double(double value)
    {
        append(Kind::real).real = value;
        return true;
    }
    bool RawNumber(const char*, rapidjson::SizeType, bool) { return false; }
    bool String(const char* text, rapidjson::SizeType length, bool)
    {
        JSONNode& node = append(Kind::text);
        node.text = text;
        node.count = length;
        return !hasEscapes_ || !hasSurrogate(text, length);
    }
    bool Key(const char* text, rapidjson::SizeType length, bool copy) { return String(text, length, copy); }
    bool StartObject() { return start(Kind::object); }
    bool EndObject(rapidjson::SizeType count) { return end(count); }
    bool StartArray() { return start(Kind::array); }
    bool EndArray(rapidjson::SizeType count) { return end(count); }

private:
    JSONNode& append(Kind kind)
    {
        JSONNode& node = nodes_.emplace_back();
        node.kind = kind;
        return node;
    }
    bool start(Kind kind)
    {
        open_.push_back(nodes_.size());
        append(kind);
        return !isTooDeep();
    }
    bool end(rapidjson::SizeType count)
    {
        JSONNode& container = nodes_[open_.back()];
        container.count = count;
        container.end = static_cast<std::uint32_t>(nodes_.size());
        open_.pop_back();
        return true;
    }

    std::vector<JSONNode>& nodes_;
    bool hasEscapes_;
    std::vector<std::size_t> open_;
};

} // namespace

std::optional<JSONDocument> JSONDocument::parse(QByteArray data, DecodingError& error)
{
    const auto corrupted = [&error](const QString& why) {
        error.set(DecodingError::Kind::dataCorrupted, u"The data is not valid: "_s + why);
        return std::nullopt;
    };
    if (data.size() >= std::numeric_limits<std::uint32_t>::max())
        return corrupted(u"it is too long."_s);

    const bool hasEscapes = data.contains('\\');
    JSONDocument document(std::move(data));
    document.nodes_.reserve(static_cast<std::size_t>(document.text_.size()) / bytesPerToken + 1);
    TokenList tokens(document.nodes_, hasEscapes);
    rapidjson::InsituStringStream stream(document.text_.data());
    rapidjson::Reader reader;
    const auto result = reader.Parse<parseFlags>(stream, tokens);
    if (tokens.isTooDeep())
        return corrupted(u"it is nested too deeply."_s);
    if (result.Code() == rapidjson::kParseErrorTermination)
        return corrupted(u"a text is no Unicode."_s);
    if (result.IsError()) {
        const auto why = QString::fromLatin1(rapidjson::GetParseError_En(result.Code()));
        return corrupted(u"%1 (byte %2)"_s.arg(why).arg(result.Offset()));
    }
    if (stream.Tell() != static_cast<std::size_t>(document.text_.size()))
        return corrupted(u"a zero byte stands in it."_s); // the parser takes it for the end
    return document;
}

} // namespace quor::toolkit
