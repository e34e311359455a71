// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>
#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quor::toolkit {

/// How deeply arrays and objects may nest, in reading and in writing. Far beyond any real record, and
/// low enough for conversions and destructors to recurse.
inline constexpr int maximumJSONDepth = 512;

/// Decodes UTF-8 as it stands: QString would drop a byte order mark in front.
[[nodiscard]] QString textFromUtf8(std::string_view utf8);

/// One token of a parsed text. The tokens of a document lie in one flat list, in the text's order: an
/// object is its own token, then those of each name and value; `end` is the index after its last.
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
    std::uint32_t count = 0; ///< bytes of a text, elements of an array, members of an object
    union {
        bool boolean;
        std::uint64_t unsignedInteger = 0;
        std::int64_t negativeInteger;
        double real;
        const char* text; ///< UTF-8, not terminated
        std::uint32_t end;
    };
};

/// A value within a `JSONDocument`, which it borrows from; or none at all, where an object lacks the
/// member. Two words, cheap to copy. Any thread.
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

    /// What kind of value it is, for a person: "null", "a number".
    [[nodiscard]] QLatin1StringView kindName() const;

    // None for a value of another kind, or a number that the type cannot hold exactly.
    [[nodiscard]] std::optional<bool> toBool() const;
    [[nodiscard]] std::optional<double> toDouble() const; ///< any number; a long integer is rounded
    [[nodiscard]] std::optional<std::uint64_t> toUnsigned() const; ///< 3.0 is integral, 3.5 is not
    [[nodiscard]] std::optional<std::int64_t> toSigned() const;
    [[nodiscard]] std::optional<QString> toText() const;

    /// Of an array or object; 0 for anything else.
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

    /// Calls `visit(std::string_view name, JSONValue)` with each member of an object, duplicates
    /// included, in the text's order, until it returns false. The name is UTF-8.
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

    /// Looks the members of these names up in one pass; of duplicates the last one counts. Those that
    /// the object lacks stay absent. `found` has the size of `names`.
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
