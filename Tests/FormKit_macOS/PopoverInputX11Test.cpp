// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormColorPicker.h"
#include "FormKit_macOS/Elements/FormDetailInfoButton.h"
#include "Platform/Linux/QtApplication.h"
#include "Platform/Linux/X11/X11WindowServer.h"
#include "Platform/Services/Appearance.h"
#include "PlatformLinux/Xdotool.h"
#include "PresentationFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::formkit;
using quor::test::at;
using quor::test::TestForm;
using quor::test::waitFor;
using quor::test::xdotool;

TEST(PopoverInputX11Test, WhatOpensFromAPopoverTakesTheKeyboardAndLeavesThePopoverOpen)
{
    platform::QtApplication application;
    platform::Appearance appearance;
    platform::X11WindowServer windowServer;
    const auto form = std::make_shared<TestForm>(u"Root"_s);
    const auto second = std::make_shared<TestForm>(u"Second"_s);
    const auto picker = makeElement<FormColorPicker>();
    const auto info = std::make_shared<FormDetailInfoButton>();
    info->setInfoText(u"An explanation"_s);
    picker->setDetailElement(info);
    second->insertElement(picker, 0);
    FormWindow window(std::make_shared<FormContainerViewController>(
        form, FormServices{application, appearance, windowServer}));
    window.move(400, 50);
    window.show();
    ASSERT_TRUE(waitFor([&] { return window.isActiveWindow() && form->field().hasFocus(); }));
    const auto click = [](const QWidget& view) {
        return xdotool(at(view.mapToGlobal(view.rect().center())) + u"click 1"_s);
    };
    form->clicked = [&] { form->presentForm(second); };
    ASSERT_TRUE(click(*form->button->button()));
    const auto& root = *window.container().rootViewController();
    const auto isActive
        = [&] { return root.activePopover() && root.activePopover()->window()->isActiveWindow(); };
    ASSERT_TRUE(waitFor(isActive));

    ASSERT_TRUE(click(picker->colorWell()));
    const auto chooser = [&] { return picker->colorWell().chooser(); };
    ASSERT_TRUE(waitFor([&] { return chooser() && chooser()->isActiveWindow(); }));
    chooser()->setCurrentColor(Qt::red);
    ASSERT_TRUE(xdotool(u"key Return"_s));
    ASSERT_TRUE(waitFor([&] { return picker->hasChanges() && !chooser(); }));
    EXPECT_EQ(picker->value(), QColor(Qt::red));
    ASSERT_TRUE(waitFor(isActive));

    ASSERT_TRUE(click(*info->view()));
    ASSERT_TRUE(waitFor([&] { return info->infoView() && info->infoView()->focusWidget()->hasFocus(); }));
    ASSERT_TRUE(click(*info->view()));
    ASSERT_TRUE(waitFor([&] { return !info->infoView(); }));
    ASSERT_TRUE(click(*info->view()));
    ASSERT_TRUE(waitFor([&] { return info->infoView(); }));
    ASSERT_TRUE(xdotool(u"key Escape"_s));
    ASSERT_TRUE(waitFor([&] { return !info->infoView(); }));
    EXPECT_TRUE(isActive());
    ASSERT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(waitFor([&] { return !root.activePopover() && window.isActiveWindow(); }));
}
