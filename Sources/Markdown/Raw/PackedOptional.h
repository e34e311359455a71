// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

/// An optional enumerator in one byte, as the nodes of a tree store it.
namespace quor::markdown {

template <class Enum>
char packed(std::optional<Enum> value)
{
    return value ? static_cast<char>(static_cast<int>(*value) + 1) : '\0';
}

template <class Enum>
std::optional<Enum> unpacked(char byte)
{
    return byte == '\0' ? std::nullopt : std::optional(static_cast<Enum>(byte - 1));
}

} // namespace quor::markdown
