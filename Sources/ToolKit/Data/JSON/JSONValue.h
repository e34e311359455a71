// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>
#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quor::toolkit {

/// How deeply arrays and objects may be nested in a text. More than any real record needs, and low enough for
/// recursive conversions and destructors.
inline constexpr int maximumJSONDepth = 512;

/// Decodes UTF-8. Unlike QString, keeps a byte order mark at the beginning.
[[nodiscard]] QString textFromUtf8(std::string_view utf8);

/// One token of a parsed text. The tokens of a document are a flat list in the order of the text: the token
/// of an object comes before the tokens of the names and values in it, and its `end` is the index after them.
struct JSONNode {
    enum class Kind : std::uint8_t {
        null,
        boolean,
        unsignedInteger,
        negativeInteger,
        real,
        text,
        array,
        object
    };

    Kind kind = Kind::null;
    /// The number of bytes of a text, elements of an array, or members of an object.
    std::uint32_t count = 0;
    union {
        bool boolean;
        std::uint64_t unsignedInteger = 0;
        std::int64_t negativeInteger;
        double real;
        const char* text; ///< UTF-8, not terminated.
        std::uint32_t end;
    };
};

/// A value in a `JSONDocument`, from which it borrows; or an absent value, for a member that an object does
/// not have. Cheap to copy. Any thread.
class JSONValue final {
public:
    JSONValue() = default;
    JSONValue(const JSONNode* nodes, std::uint32_t index)
        : nodes_(nodes)
        , index_(index)
    {
    }

    [[nodiscard]] bool isAbsent() const { return !nodes_; }
    [[nodiscard]] bool isNull() const { return nodes_ && node().kind == JSONNode::Kind::null; }
    [[nodiscard]] bool isNumber() const;
    [[nodiscard]] bool isArray() const { return nodes_ && node().kind == JSONNode::Kind::array; }
    [[nodiscard]] bool isObject() const { return nodes_ && node().kind == JSONNode::Kind::object; }

    /// Returns the kind of value in words, for error texts: "null", "a number".
    [[nodiscard]] QLatin1StringView kindName() const;

    // These return `nullopt` for a value of another kind, or a number that the type cannot hold exactly.
    [[nodiscard]] std::optional<bool> toBool() const;
    [[nodiscard]] std::optional<double> toDouble() const; ///< Takes any number; rounds a long integer.
    [[nodiscard]] std::optional<std::uint64_t> toUnsigned() const; ///< 3.0 is integral, 3.5 is not.
    [[nodiscard]] std::optional<std::int64_t> toSigned() const;
    [[nodiscard]] std::optional<QString> toText() const;

    /// Returns the number of elements or members of an array or object; 0 for other values.
    [[nodiscard]] std::uint32_t count() const;

    /// Calls `visit(JSONValue)` with each element of an array until it returns false.
    template <typename Visit>
    void forEachElement(Visit&& visit) const
    {
        if (!isArray())
            return;
        for (std::uint32_t at = index_ + 1; at != node().end; at = next(at))
            if (!visit(JSONValue(nodes_, at)))
                return;
    }

    /// Calls `visit(std::string_view name, JSONValue)` with each member of an object, in the order of the
    /// text and with duplicates, until it returns false. The name is UTF-8.
    template <typename Visit>
    void forEachMember(Visit&& visit) const
    {
        if (!isObject())
            return;
        for (std::uint32_t at = index_ + 1; at != node().end; at = next(at + 1)) {
            const JSONNode& name = nodes_[at];
            if (!visit(std::string_view(name.text, name.count), JSONValue(nodes_, at + 1)))
                return;
        }
    }

    /// Finds the members with these names in one pass and stores them in `found`, which must have the size of
    /// `names`. Of duplicates, the last is stored. Nothing is stored for missing members.
    void members(std::span<const std::string_view> names, std::span<JSONValue> found) const;

private:
    [[nodiscard]] const JSONNode& node() const { return nodes_[index_]; }
    [[nodiscard]] std::uint32_t next(std::uint32_t at) const
    {
        return nodes_[at].kind >= JSONNode::Kind::array ? nodes_[at].end : at + 1;
    }

    const JSONNode* nodes_ = nullptr;
    std::uint32_t index_ = 0;
};

} // namespace quor::toolkit
