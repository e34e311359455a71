// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/HotkeyFormatter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using quor::toolkit::HotkeyFormatter;

namespace {

class TestLayout final : public quor::platform::KeyboardLayout {
public:
    [[nodiscard]] QString text(std::uint32_t keyCode) const override
    {
        switch (keyCode) {
        case 0x00:
            return u"ф"_s;
        case 0x01:
            return u"ab"_s;
        case 0x02:
            return u"𐐨"_s;
        case 0x24:
            return u"never asked"_s;
        default:
            return {};
        }
    }
};

} // namespace

TEST(HotkeyFormatterTest, WordsModifiersAndKeys)
{
    const TestLayout layout;
    const HotkeyFormatter formatter(layout);
    const struct {
        int keyCode, modifier;
        QString text;
    } cases[] = {
        {0x31, 0x1100, u"⌃⌘⎵"_s}, //
        {0x24, 0x1B00, u"⌃⌥⇧⌘↩"_s},
        {-1, 0x0100, u"⌘"_s},
        {-1, -1, u""_s},
        {0x7A, -1, u"F1"_s},
        {0x4A, 0, u"🔇"_s},
        {0x3C, 0, u"⇧"_s},
        {0x3D, 0x0200, u"⇧⌥"_s},
        {0x36, 0, u"???"_s},
        {0x00, 0x7fffe4ff, u"ф"_s},
        {0x01, 0x0800, u"⌥a"_s},
        {0x02, 0x0800, u"⌥???"_s},
        {0x10024, 0x0800, u"⌥???"_s},
    };
    for (const auto& each : cases)
        EXPECT_EQ(formatter.displayString(each.keyCode, each.modifier), each.text) << each.keyCode;
}
