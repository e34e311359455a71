// SPDX-License-Identifier: MIT
#include "Combination.h"

#include <Platform/Services/HotKeys.h>

#include <QStringList>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace Modifier = quor::platform::HotKeyModifier;

namespace {

using Named = std::pair<QStringView, std::uint32_t>;

constexpr auto modifiers = std::to_array<Named>({{u"ctrl", Modifier::control},
    {u"control", Modifier::control}, {u"alt", Modifier::option}, {u"option", Modifier::option},
    {u"shift", Modifier::shift}, {u"super", Modifier::command}, {u"command", Modifier::command}});

constexpr auto keys = std::to_array<Named>(
    {{u"return", 0x24}, {u"tab", 0x30}, {u"space", 0x31}, {u"backspace", 0x33}, {u"escape", 0x35},
        {u"insert", 0x72}, {u"delete", 0x75}, {u"home", 0x73}, {u"end", 0x77}, {u"pageup", 0x74},
        {u"pagedown", 0x79}, {u"left", 0x7B}, {u"right", 0x7C}, {u"down", 0x7D}, {u"up", 0x7E}, {u"f1", 0x7A},
        {u"f2", 0x78}, {u"f3", 0x63}, {u"f4", 0x76}, {u"f5", 0x60}, {u"f6", 0x61}, {u"f7", 0x62},
        {u"f8", 0x64}, {u"f9", 0x65}, {u"f10", 0x6D}, {u"f11", 0x67}, {u"f12", 0x6F}});

template <std::size_t count>
std::optional<std::uint32_t> valueOf(const std::array<Named, count>& list, const QString& name)
{
    const auto* const found = std::ranges::find(list, QStringView(name), &Named::first);
    return found == list.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::uint32_t> keyCode(const QString& name, const quor::platform::KeyboardLayout& layout)
{
    if (const auto named = valueOf(keys, name))
        return named;
    constexpr std::uint32_t endOfCodes = 0x80;
    for (std::uint32_t code = 0; code < endOfCodes && !name.isEmpty(); ++code) {
        if (layout.text(code) == name)
            return code;
    }
    bool isNumber = false;
    const auto code = name.startsWith(QStringLiteral("0x")) ? name.toUInt(&isNumber, 16) : 0;
    return isNumber ? std::optional(code) : std::nullopt;
}

} // namespace

std::optional<Combination> combination(const QString& text, const quor::platform::KeyboardLayout& layout)
{
    QStringList parts = text.toLower().split(u'+');
    const auto key = keyCode(parts.takeLast(), layout);
    Combination result{key.value_or(0)};
    bool isValid = key.has_value();
    for (const QString& part : parts) {
        const auto modifier = valueOf(modifiers, part);
        isValid &= modifier.has_value();
        result.modifiers |= modifier.value_or(0);
    }
    return isValid ? std::optional(result) : std::nullopt;
}
