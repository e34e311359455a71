// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/HotkeyFormatter.h"

#include "Platform/Services/HotKeys.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

struct KeyCodeSymbol {
    int keyCode;
    QStringView text;
};

/// The keys whose name does not depend on the layout.
constexpr auto keyCodeSymbols = std::to_array<KeyCodeSymbol>(
    {{0x24, u"↩"}, {0x30, u"⇥"}, {0x31, u"⎵"}, {0x33, u"⌫"}, {0x35, u"⎋"}, {0x37, u"⌘"}, {0x38, u"⇧"},
        {0x39, u"⇪"}, {0x3A, u"⌥"}, {0x3B, u"⌃"}, {0x3C, u"⇧"}, {0x3D, u"⌥"}, {0x3E, u"⌃"}, {0x3F, u"fn"},
        {0x40, u"F17"}, {0x48, u"🔊"}, {0x49, u"🔈"}, {0x4A, u"🔇"}, {0x4F, u"F18"}, {0x50, u"F19"},
        {0x5A, u"F20"}, {0x60, u"F5"}, {0x61, u"F6"}, {0x62, u"F7"}, {0x63, u"F3"}, {0x64, u"F8"},
        {0x65, u"F9"}, {0x67, u"F11"}, {0x69, u"F13"}, {0x6A, u"F16"}, {0x6B, u"F14"}, {0x6D, u"F10"},
        {0x6F, u"F12"}, {0x71, u"F15"}, {0x73, u"↖"}, {0x74, u"⇞"}, {0x75, u"⌦"}, {0x76, u"F4"}, {0x77, u"↘"},
        {0x78, u"F2"}, {0x79, u"⇟"}, {0x7A, u"F1"}, {0x7B, u"←"}, {0x7C, u"→"}, {0x7D, u"↓"}, {0x7E, u"↑"}});

QString symbol(int keyCode)
{
    const auto* const found = std::ranges::find(keyCodeSymbols, keyCode, &KeyCodeSymbol::keyCode);
    return found == std::end(keyCodeSymbols) ? QString() : found->text.toString();
}

QString modifierText(int modifier)
{
    namespace Modifier = platform::HotKeyModifier;
    QString text;
    if (modifier < 0)
        return text;
    constexpr auto keys = std::to_array<std::pair<std::uint32_t, int>>({{Modifier::control, 0x3B},
        {Modifier::option, 0x3A}, {Modifier::shift, 0x38}, {Modifier::command, 0x37}});
    for (const auto& [bit, keyCode] : keys) {
        if (std::uint32_t(modifier) & bit)
            text += symbol(keyCode);
    }
    return text;
}

} // namespace

QString HotkeyFormatter::displayString(int keyCode, int modifier) const
{
    QString modifiers = modifierText(modifier);
    if (keyCode < 0)
        return modifiers;
    if (const auto name = symbol(keyCode); !name.isEmpty())
        return modifiers + name;
    // Names are one UTF-16 unit long. Half a character is no name.
    const auto typed = layout_.text(std::uint32_t(keyCode));
    const bool hasName = !typed.isEmpty() && !typed[0].isSurrogate();
    return modifiers + (hasName ? typed.left(1) : u"???"_s);
}

} // namespace quor::toolkit
