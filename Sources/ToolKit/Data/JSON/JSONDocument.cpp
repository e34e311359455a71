// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONDocument.h"

#include "ToolKit/Data/JSON/RapidJSON.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

using Kind = JSONNode::Kind;

namespace {

// Numbers are converted here: the parser's own conversion, even at full precision, is wrong for some numbers
// that begin with the digits of 2^64 - 1. The encoding is validated before parsing: the parser would read
// beyond the end of a text that ends within a character.
constexpr unsigned parseFlags
    = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;

constexpr std::size_t bytesPerToken = 8; // the average of our records

constexpr QLatin1StringView notUnicode = "a text is not valid Unicode."_L1;

// The parser checks the pairs of escaped surrogates, but accepts a low surrogate alone.
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

/// Receives the parser's tokens. A member function that returns false ends the parsing.
class TokenList {
public:
    TokenList(std::vector<JSONNode>& nodes, bool hasEscapes)
        : nodes_(nodes)
        , hasEscapes_(hasEscapes)
    {
    }

    /// The reason why this object ended the parsing; empty if it did not.
    [[nodiscard]] QLatin1StringView failure() const { return failure_; }

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
    bool RawNumber(const char* text, rapidjson::SizeType length, bool)
    {
        const std::string_view number(text, length);
        const bool isIntegral = std::all_of(
            number.begin(), number.end(), [](char c) { return c != '.' && c != 'e' && c != 'E'; });
        if (!isIntegral || number == "-0")
            return real(number);
        if (number.front() == '-')
            return integer<std::int64_t>(number, Kind::negativeInteger, &JSONNode::negativeInteger);
        return integer<std::uint64_t>(number, Kind::unsignedInteger, &JSONNode::unsignedInteger);
    }
    // Never called, as the parser passes numbers as text.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }
    bool String(const char* text, rapidjson::SizeType length, bool)
    {
        JSONNode& node = append(Kind::text);
        node.text = text;
        node.count = length;
        return !hasEscapes_ || !hasSurrogate(text, length) || fail(notUnicode);
    }
    bool Key(const char* text, rapidjson::SizeType length, bool copy) { return String(text, length, copy); }
    bool StartObject() { return start(Kind::object); }
    bool EndObject(rapidjson::SizeType count) { return end(count); }
    bool StartArray() { return start(Kind::array); }
    bool EndArray(rapidjson::SizeType count) { return end(count); }

private:
    bool fail(QLatin1StringView why)
    {
        failure_ = why;
        return false;
    }
    template <typename Integer>
    bool integer(std::string_view text, Kind kind, Integer JSONNode::*member)
    {
        Integer value = 0;
        if (std::from_chars(text.begin(), text.end(), value).ec != std::errc())
            return real(text); // longer than 64 bits
        append(kind).*member = value;
        return true;
    }
    bool real(std::string_view text)
    {
        double value = 0;
        if (std::from_chars(text.begin(), text.end(), value).ec != std::errc()) {
            std::istringstream stream{
                std::string(text)}; // unlike from_chars, it reads a number that is too small as 0
            stream.imbue(std::locale::classic());
            if (!(stream >> value))
                return fail("a number is too large."_L1);
        }
        append(Kind::real).real = value;
        return true;
    }
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
        return open_.size() <= maximumJSONDepth || fail("it is nested too deeply."_L1);
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
    QLatin1StringView failure_;
};

} // namespace

std::optional<JSONDocument> JSONDocument::parse(QByteArray data, DecodingError& error)
{
    const auto corrupted = [&error](QAnyStringView why) {
        error.set(DecodingError::Kind::dataCorrupted, u"The data is not valid: "_s + why.toString());
        return std::nullopt;
    };
    if (data.size() >= std::numeric_limits<std::uint32_t>::max())
        return corrupted(u"it is too long."_s);
    if (!data.isValidUtf8())
        return corrupted(notUnicode);

    const bool hasEscapes = data.contains('\\');
    JSONDocument document(std::move(data));
    document.nodes_.reserve(static_cast<std::size_t>(document.text_.size()) / bytesPerToken + 1);
    TokenList tokens(document.nodes_, hasEscapes);
    rapidjson::InsituStringStream stream(document.text_.data());
    rapidjson::Reader reader;
    const auto result = reader.Parse<parseFlags>(stream, tokens);
    if (!tokens.failure().isEmpty())
        return corrupted(tokens.failure());
    if (result.IsError()) {
        const auto why = QString::fromLatin1(rapidjson::GetParseError_En(result.Code()));
        return corrupted(u"%1 (byte %2)"_s.arg(why).arg(result.Offset()));
    }
    if (stream.Tell() != static_cast<std::size_t>(document.text_.size()))
        return corrupted(u"it contains a zero byte."_s); // the parser stops at it
    return document;
}

} // namespace quor::toolkit
