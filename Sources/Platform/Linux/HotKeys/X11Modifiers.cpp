// SPDX-License-Identifier: MIT
#include "Platform/Linux/HotKeys/X11Modifiers.h"

#include "Platform/Linux/X11/X11Connection.h"
#include "Platform/Services/HotKeys.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

#include <xkbcommon/xkbcommon-keysyms.h>
// The header uses a keyword of C++ as a name.
#define explicit explicit_ // NOLINT(clang-diagnostic-keyword-macro)
#include <xcb/xkb.h>
#undef explicit

namespace quor::platform {

namespace {

/// The symbols that the layout has on each key, in all groups and levels.
class KeySymbols final {
public:
    explicit KeySymbols(xcb_connection_t* connection)
        : first_(xcb_get_setup(connection)->min_keycode)
    {
        const auto count = std::uint8_t(xcb_get_setup(connection)->max_keycode - first_ + 1);
        const auto cookie = xcb_get_keyboard_mapping(connection, first_, count);
        reply_ = x11Reply(xcb_get_keyboard_mapping_reply(connection, cookie, nullptr));
    }

    [[nodiscard]] bool has(xcb_keycode_t key, std::span<const xcb_keysym_t> wanted) const
    {
        if (!reply_ || key < first_)
            return false;
        const std::size_t width = reply_->keysyms_per_keycode;
        const std::span all(xcb_get_keyboard_mapping_keysyms(reply_.get()),
            std::size_t(xcb_get_keyboard_mapping_keysyms_length(reply_.get())));
        const auto start = (key - first_) * width;
        if (start + width > all.size())
            return false;
        const auto own = all.subspan(start, width);
        return std::ranges::find_first_of(own, wanted) != own.end();
    }

private:
    xcb_keycode_t first_;
    X11Reply<xcb_get_keyboard_mapping_reply_t> reply_{nullptr, &std::free};
};

/// The modifiers, among those without a fixed meaning, that a key with one of these symbols sets.
std::uint16_t modifiersOf(const xcb_get_modifier_mapping_reply_t& mapping, const KeySymbols& symbols,
    std::span<const xcb_keysym_t> wanted)
{
    const std::span keys(xcb_get_modifier_mapping_keycodes(&mapping),
        std::size_t(xcb_get_modifier_mapping_keycodes_length(&mapping)));
    const std::size_t perModifier = mapping.keycodes_per_modifier;
    std::uint16_t found = 0;
    for (std::size_t index = XCB_MAP_INDEX_1 * perModifier; index < keys.size(); ++index) {
        if (keys[index] && symbols.has(keys[index], wanted))
            found |= std::uint16_t(1U << (index / perModifier));
    }
    return found;
}

std::uint16_t lowestBit(std::uint16_t mask)
{
    return std::uint16_t(mask & -mask);
}

} // namespace

std::optional<std::uint16_t> X11Modifiers::mask(std::uint32_t hotKeyModifiers) const
{
    std::uint16_t result = 0;
    const auto table = std::to_array<std::pair<std::uint32_t, std::uint16_t>>(
        {{HotKeyModifier::command, command}, {HotKeyModifier::shift, XCB_MOD_MASK_SHIFT},
            {HotKeyModifier::option, option}, {HotKeyModifier::control, XCB_MOD_MASK_CONTROL}});
    for (const auto& [modifier, bit] : table) {
        if ((hotKeyModifiers & modifier) && !bit)
            return std::nullopt;
        result |= (hotKeyModifiers & modifier) ? bit : 0;
    }
    return result;
}

std::vector<std::uint16_t> X11Modifiers::lockVariants() const
{
    std::vector<std::uint16_t> variants{0};
    for (std::uint16_t bit = 1; bit && bit <= XCB_MOD_MASK_5; bit = std::uint16_t(bit << 1)) {
        if (!(locks & bit))
            continue;
        const auto count = variants.size();
        for (std::size_t index = 0; index < count; ++index)
            variants.push_back(std::uint16_t(variants[index] | bit));
    }
    return variants;
}

X11Modifiers x11Modifiers(xcb_connection_t* connection)
{
    constexpr auto options = std::to_array<xcb_keysym_t>({XKB_KEY_Alt_L, XKB_KEY_Alt_R});
    constexpr auto commands = std::to_array<xcb_keysym_t>({XKB_KEY_Super_L, XKB_KEY_Super_R});
    constexpr auto lockKeys = std::to_array<xcb_keysym_t>(
        {XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock, XKB_KEY_ISO_Level3_Lock, XKB_KEY_ISO_Level5_Lock});
    const auto cookie = xcb_get_modifier_mapping(connection);
    const KeySymbols symbols(connection);
    const auto mapping = x11Reply(xcb_get_modifier_mapping_reply(connection, cookie, nullptr));
    if (!mapping)
        return {};
    X11Modifiers result{lowestBit(modifiersOf(*mapping, symbols, options)),
        lowestBit(modifiersOf(*mapping, symbols, commands)), 0};
    // A key can hold a lock on another level, for instance Caps Lock on both Shift keys together.
    const int fixed = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | result.option | result.command;
    result.locks = std::uint16_t((XCB_MOD_MASK_LOCK | modifiersOf(*mapping, symbols, lockKeys)) & ~fixed);
    return result;
}

std::optional<std::uint8_t> followX11Keyboard(xcb_connection_t* connection)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (!extension || !extension->present)
        return std::nullopt;
    const auto version = xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const auto used = x11Reply(xcb_xkb_use_extension_reply(connection, version, nullptr));
    if (!used || !used->supported)
        return std::nullopt;
    constexpr std::uint32_t detectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto flags
        = xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, detectable, detectable, 0, 0, 0);
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t parts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, events, 0, events, parts, parts, nullptr);
    const auto set = x11Reply(xcb_xkb_per_client_flags_reply(connection, flags, nullptr));
    return set && (set->value & detectable) ? std::optional(extension->first_event) : std::nullopt;
}

} // namespace quor::platform
