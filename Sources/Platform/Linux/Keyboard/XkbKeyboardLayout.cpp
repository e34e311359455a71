// SPDX-License-Identifier: MIT
#include "Platform/Linux/Keyboard/XkbKeyboardLayout.h"

#include "Platform/Linux/Keyboard/VirtualKeyCodes.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace quor::platform {

namespace {

struct Unreference {
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};
using State = std::unique_ptr<xkb_state, Unreference>;

/// The state of the keyboard of an X server; null if the server does not answer.
State stateOf(xcb_connection_t* connection, xkb_context* context)
{
    const auto device = connection ? xkb_x11_get_core_keyboard_device_id(connection) : -1;
    const std::unique_ptr<xkb_keymap, Unreference> keymap(device < 0
            ? nullptr
            : xkb_x11_keymap_new_from_device(context, connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    return State(keymap ? xkb_x11_state_new_from_device(keymap.get(), connection, device) : nullptr);
}

State defaultState(xkb_context* context)
{
    const std::unique_ptr<xkb_keymap, Unreference> keymap(
        context ? xkb_keymap_new_from_names(context, nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr);
    return State(keymap ? xkb_state_new(keymap.get()) : nullptr);
}

/// The symbols on a key, one for each level of the group in force. The first level is the one without
/// modifiers.
std::vector<xkb_keysym_t> symbols(
    xcb_connection_t* connection, xkb_context* context, std::uint32_t virtualKeyCode)
{
    const auto code = evdevCode(virtualKeyCode);
    auto state = code ? stateOf(connection, context) : nullptr;
    if (code && !state)
        state = defaultState(context);
    if (!state)
        return {};
    const auto key = xkb_keycode_t(*code + x11KeycodeOffset);
    auto* keymap = xkb_state_get_keymap(state.get());
    const auto layout = xkb_state_key_get_layout(state.get(), key);
    std::vector<xkb_keysym_t> found;
    for (xkb_level_index_t level = 0; level < xkb_keymap_num_levels_for_key(keymap, key, layout); ++level) {
        const xkb_keysym_t* onLevel = nullptr;
        if (xkb_keymap_key_get_syms_by_level(keymap, key, layout, level, &onLevel) > 0)
            found.push_back(onLevel[0]);
    }
    return found;
}

/// What a dead key shows on a keyboard. It types nothing by itself.
QString accent(xkb_keysym_t symbol)
{
    constexpr auto accents = std::to_array<std::pair<xkb_keysym_t, char16_t>>({{XKB_KEY_dead_grave, u'`'},
        {XKB_KEY_dead_acute, u'´'}, {XKB_KEY_dead_circumflex, u'^'}, {XKB_KEY_dead_tilde, u'~'},
        {XKB_KEY_dead_macron, u'¯'}, {XKB_KEY_dead_breve, u'˘'}, {XKB_KEY_dead_abovedot, u'˙'},
        {XKB_KEY_dead_diaeresis, u'¨'}, {XKB_KEY_dead_abovering, u'˚'}, {XKB_KEY_dead_doubleacute, u'˝'},
        {XKB_KEY_dead_caron, u'ˇ'}, {XKB_KEY_dead_cedilla, u'¸'}, {XKB_KEY_dead_ogonek, u'˛'}});
    const auto* const found = std::ranges::find(accents, symbol, &std::pair<xkb_keysym_t, char16_t>::first);
    return found == std::end(accents) ? QString() : QString(QChar(found->second));
}

} // namespace

void XkbKeyboardLayout::Release::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

void XkbKeyboardLayout::Release::operator()(xkb_context* context) const
{
    xkb_context_unref(context);
}

XkbKeyboardLayout::XkbKeyboardLayout(const QByteArray& display)
    : connection_(xcb_connect(display.constData(), nullptr))
    , context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    const bool hasKeyboard = !xcb_connection_has_error(connection_.get())
        && xkb_x11_setup_xkb_extension(connection_.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
            XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr,
            nullptr);
    if (!hasKeyboard)
        connection_.reset();
}

XkbKeyboardLayout::~XkbKeyboardLayout() = default;

// The keys of a number pad type something on the level of Num Lock only.
QString XkbKeyboardLayout::text(std::uint32_t keyCode) const
{
    for (const auto symbol : symbols(connection_.get(), context_.get(), keyCode)) {
        const auto character = char32_t(xkb_keysym_to_utf32(symbol));
        if (auto shown = accent(symbol); !shown.isEmpty())
            return shown;
        if (QChar::isPrint(character))
            return QString::fromUcs4(&character, 1);
    }
    return {};
}

QString XkbKeyboardLayout::symbolName(std::uint32_t keyCode) const
{
    const auto onKey = symbols(connection_.get(), context_.get(), keyCode);
    std::array<char, 64> name{};
    const bool hasName = !onKey.empty() && onKey.front() != XKB_KEY_NoSymbol
        && xkb_keysym_get_name(onKey.front(), name.data(), name.size()) > 0;
    return hasName ? QString::fromLatin1(name.data()) : QString();
}

} // namespace quor::platform
