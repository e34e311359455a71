// SPDX-License-Identifier: MIT
#include "FormKit/Form.h"
#include "FormKit_macOS/DropDown/DropdownPanel.h"
#include "FormKit_macOS/Elements/FormDropDown.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "FormKit_macOS/Presentation/FormContainerViewController.h"
#include "FormKit_macOS/Presentation/FormWindow.h"
#include "Platform/Linux/QtApplication.h"
#include "Platform/Linux/X11/X11WindowServer.h"
#include "Platform/Services/Appearance.h"
#include "PlatformLinux/Xdotool.h"
#include "PresentationFixture.h"

#include <QApplication>
#include <QScreen>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::formkit;
using quor::test::at;
using quor::test::TestForm;
using quor::test::waitFor;
using quor::test::xdotool;

namespace {

TEST(DropDownX11Test, AnswersToRealClicksAndKeys)
{
    platform::QtApplication application;
    platform::Appearance appearance;
    platform::X11WindowServer windowServer;
    const auto form = std::make_shared<TestForm>(u"Form"_s);
    const auto dropDown = makeElement<FormDropDown>();
    for (int i = 0; i < 100; ++i)
        dropDown->add({u"Item %1"_s.arg(i), i});
    dropDown->setSelectedIndex(50);
    form->insertElement(dropDown, 0);
    FormWindow window(std::make_shared<FormContainerViewController>(
        form, FormServices{application, appearance, windowServer}));
    window.move(400, 50);
    window.show();
    QWidget& button = *dropDown->view();
    ASSERT_TRUE(waitFor([&] { return window.isActiveWindow() && button.hasFocus(); }));

    const auto click = [](const QWidget& view) {
        return xdotool(at(view.mapToGlobal(view.rect().center())) + u"click 1"_s);
    };
    const auto isOpen = [&] {
        return dropDown->isOpen() && dropDown->panel()->dropdownView().keyboardReceiver().hasFocus();
    };
    const auto isClosed = [&] { return !dropDown->isOpen(); };

    // The button opens the list and closes it; the keyboard comes back.
    ASSERT_TRUE(click(button));
    ASSERT_TRUE(waitFor(isOpen));
    EXPECT_GE(dropDown->panel()->y(), button.mapToGlobal(button.rect().bottomLeft()).y());
    ASSERT_TRUE(click(button));
    ASSERT_TRUE(waitFor(isClosed));
    ASSERT_TRUE(waitFor([&] { return button.hasFocus(); }));

    // Keys typed in quick succession all reach the field.
    ASSERT_TRUE(xdotool(u"type --delay 1 77"_s));
    ASSERT_TRUE(waitFor(isOpen));
    ASSERT_TRUE(waitFor([&] { return dropDown->panel()->dropdownView().searchField()->text() == u"77"_s; }));
    auto& table = *dropDown->panel()->findChild<toolkit::CustomTableView*>();
    ASSERT_TRUE(waitFor([&] { return table.numberOfRows() == 1; }));
    ASSERT_TRUE(xdotool(u"key Down Return"_s));
    ASSERT_TRUE(waitFor(isClosed));
    EXPECT_EQ(dropDown->selectedIndex(), 77);
    EXPECT_TRUE(waitFor([&] { return button.hasFocus(); }));

    // Escape closes the list alone.
    ASSERT_TRUE(xdotool(u"key space"_s));
    ASSERT_TRUE(waitFor(isOpen));
    ASSERT_TRUE(xdotool(u"key Escape"_s));
    ASSERT_TRUE(waitFor(isClosed));
    EXPECT_TRUE(window.isVisible() && button.hasFocus());

    // A press elsewhere closes the list, and does what it does elsewhere.
    ASSERT_TRUE(click(button));
    ASSERT_TRUE(waitFor(isOpen));
    ASSERT_TRUE(xdotool(at({5, 5}) + u"click 1"_s)); // on the desktop
    ASSERT_TRUE(waitFor(isClosed));
    ASSERT_TRUE(click(button));
    ASSERT_TRUE(waitFor(isOpen));
    // The panel covers the rows below.
    const QPoint title = window.mapToGlobal(QPoint(window.width() / 2, 5));
    ASSERT_TRUE(xdotool(at(title) + u"click 1"_s));
    ASSERT_TRUE(waitFor(isClosed));

    // Near the lower edge of the screen the list stands above.
    window.move(400, window.screen()->availableGeometry().bottom() - window.height() - 5);
    ASSERT_TRUE(waitFor([&] { return button.mapToGlobal(QPoint()).y() > 450; }));
    ASSERT_TRUE(xdotool(u"key space"_s));
    ASSERT_TRUE(waitFor(isOpen));
    EXPECT_LE(dropDown->panel()->geometry().bottom(), button.mapToGlobal(QPoint()).y());
    ASSERT_TRUE(xdotool(u"key Escape"_s));
    ASSERT_TRUE(waitFor(isClosed));
}

} // namespace
