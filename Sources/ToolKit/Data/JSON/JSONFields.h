// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <tuple>

/// Describes the JSON form of a record or a tagged union, once for both directions:
///
///     template <> struct JSONFields<Task> {          // {"name":"Design","color":16711680}
///         static constexpr auto fields
///             = std::tuple(jsonField("name", &Task::name), jsonField("color", &Task::color));
///     };
///
/// Fields are decoded in this order, up to the first failure. A `std::optional` may be absent or null, and is
/// not written if it has no value. Other members of the object are ignored.
///
///     template <> struct JSONCases<Shape> {          // {"circle":{"_0":2}} or {"none":{}}
///         static constexpr auto value = &Shape::value; // a std::variant in the order of the cases
///         static constexpr auto cases
///             = std::tuple(jsonCase("circle", jsonField("_0", &Shape::Circle::radius)), jsonCase("none"));
///     };
///
/// A union is an object in which exactly one key is the name of a case; other keys are ignored.
namespace quor::toolkit {

template <typename Record>
struct JSONFields;

template <typename Union>
struct JSONCases;

template <typename Class, typename Member>
struct JSONField {
    std::string_view name;
    Member Class::*member;

    constexpr Member& of(Class& record) const { return record.*member; }
    constexpr const Member& of(const Class& record) const { return record.*member; }
};

/// The whole payload of a case as the value of one member: `{"entry":{"_0":{...}}}`.
struct JSONPayload {
    std::string_view name;

    template <typename Payload>
    constexpr Payload& of(Payload& payload) const
    {
        return payload;
    }
};

template <typename... Fields>
struct JSONCase {
    std::string_view name;
    std::tuple<Fields...> fields;
};

template <typename Class, typename Member>
constexpr JSONField<Class, Member> jsonField(std::string_view name, Member Class::*member)
{
    return {name, member};
}

constexpr JSONPayload jsonPayload(std::string_view name)
{
    return {name};
}

template <typename... Fields>
constexpr JSONCase<Fields...> jsonCase(std::string_view name, Fields... fields)
{
    return {name, std::tuple<Fields...>(fields...)};
}

template <typename T>
concept JSONRecord = requires
{
    JSONFields<T>::fields;
};

template <typename T>
concept JSONUnion = requires
{
    JSONCases<T>::value;
    JSONCases<T>::cases;
};

} // namespace quor::toolkit
