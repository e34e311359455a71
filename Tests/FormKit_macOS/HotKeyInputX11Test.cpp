// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormHotKeyInput.h"
#include "Platform/Linux/HotKeys/X11HotKeys.h"
#include "Platform/Linux/Keyboard/XkbKeyboardLayout.h"
#include "Platform/Linux/Monitors/X11EventMonitors.h"
#include "Platform/Linux/QtApplication.h"
#include "PlatformLinux/OtherWindow.h"
#include "PlatformLinux/Xdotool.h"
#include "ToolKit_macOS/GlobalHotKeyManager.h"

#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor::formkit;
using namespace quor::platform;
using quor::test::OtherWindow;
using quor::test::waitFor;
using quor::test::xdotool;

TEST(HotKeyInputX11Test, AHotKeyThatIsCapturedInAFormFiresFromAnotherProgramsWindow)
{
    const XkbKeyboardLayout layout;
    X11EventMonitors monitors;
    X11HotKeys hotKeys;
    quor::toolkit::GlobalHotKeyManager manager(hotKeys);
    const OtherWindow other({700, 500});
    const auto input = makeElement<FormHotKeyInput>(monitors, layout);
    QWidget window;
    (new QVBoxLayout(&window))->addWidget(input->view());
    window.setGeometry(50, 50, 200, 80);
    window.show();
    QtApplication().activate(window);
    ASSERT_TRUE(waitFor([&] { return window.isActiveWindow(); }));

    std::uint32_t fired = 0;
    manager.hotkeyPressedHandler = [&](std::uint32_t id) { fired = id; };
    input->setValueChanged([&](FormElement&) {
        const auto& field = *input->textInput();
        manager.registerHotkey(std::uint32_t(field.keyCode()), std::uint32_t(field.modifier()), 7);
    });
    input->textInput()->setFocus();
    ASSERT_TRUE(waitFor([&] { return input->textInput()->hasFocus(); }));
    xdotool(u"key super+alt+z"_s);
    EXPECT_TRUE(waitFor([&] { return input->hasChanges(); }));
    EXPECT_EQ(input->textInput()->text(), u"⌥⌘z"_s);

    xcb_set_input_focus(other.x, XCB_INPUT_FOCUS_PARENT, other.id, XCB_CURRENT_TIME);
    EXPECT_TRUE(waitFor([&] { return other.hasKeyboard(); }));
    xdotool(u"key super+alt+z"_s);
    EXPECT_TRUE(waitFor([&] { return fired == 7; }));
    input->setValueChanged({});
}
