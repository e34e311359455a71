// SPDX-License-Identifier: MIT
#include "Platform/Linux/QtApplication.h"
#include "Platform/Linux/X11/X11WindowServer.h"
#include "Platform/Services/Appearance.h"
#include "PlatformLinux/Xdotool.h"
#include "PresentationFixture.h"

#include <QApplication>
#include <QWindow>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::formkit;
using quor::test::at;
using quor::test::TestForm;
using quor::test::waitFor;
using quor::test::xdotool;

namespace {

TEST(FormPopoverX11Test, ARealClickOpensAPopoverWhoseButtonsAnswerToRealKeys)
{
    platform::QtApplication application;
    platform::Appearance appearance;
    platform::X11WindowServer windowServer;
    const FormServices services{application, appearance, windowServer};
    const auto form = std::make_shared<TestForm>(u"Root"_s);
    const auto second = std::make_shared<TestForm>(u"Second"_s);
    FormWindow window(std::make_shared<FormContainerViewController>(form, services));
    window.move(400, 50);
    window.show();
    ASSERT_TRUE(waitFor([&] { return window.isActiveWindow() && form->field().hasFocus(); }));

    auto& root = *window.container().rootViewController();
    const auto click = [](const QWidget& view) {
        return xdotool(at(view.mapToGlobal(view.rect().center())) + u"click 1"_s);
    };
    form->clicked = [&] { form->presentForm(second); };
    second->setDefaultButton(second->button);
    ASSERT_TRUE(click(*form->button->button()));
    const auto isActive
        = [&] { return root.activePopover() && root.activePopover()->window()->isActiveWindow(); };
    ASSERT_TRUE(waitFor(isActive));
    EXPECT_FALSE(second->field().hasFocus());

    int clicks = 0;
    second->clicked = [&] { ++clicks; };
    ASSERT_TRUE(xdotool(u"key Return"_s));
    EXPECT_TRUE(waitFor([&] { return clicks == 1; }));
    ASSERT_TRUE(xdotool(u"key Tab"_s));
    EXPECT_TRUE(waitFor([&] { return second->field().hasFocus(); }));
    ASSERT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(waitFor([&] { return !root.activePopover() && window.isActiveWindow(); }));

    // A press outside closes an ordinary popover, but not an important one.
    for (const bool isImportant : {true, false}) {
        SCOPED_TRACE(isImportant);
        root.present(std::make_shared<FormContainerViewController>(second, services), *form->button->button(),
            isImportant, platform::RectEdge::maxX);
        ASSERT_TRUE(waitFor(isActive));
        form->text->view()->clearFocus();
        ASSERT_TRUE(click(*form->text->view()));
        ASSERT_TRUE(waitFor([&] { return form->text->view()->hasFocus(); }));
        EXPECT_EQ(root.activePopover() != nullptr, isImportant);
        root.closePopover();
    }

    // Torn off by its background, an important popover is a window that ends like others.
    root.present(std::make_shared<FormContainerViewController>(second, services), *form->button->button(),
        true, platform::RectEdge::maxX);
    ASSERT_TRUE(waitFor(isActive));
    const auto* heading = second->elements().front()->view()->parentWidget();
    const QPoint background = heading->mapToGlobal(QPoint(heading->width() / 2, 4));
    const auto drag = at(background) + u"mousedown 1 "_s + at(background + QPoint(40, 60))
        + at(background + QPoint(60, 120)) + u"mouseup 1"_s;
    ASSERT_TRUE(xdotool(drag));
    ASSERT_TRUE(
        waitFor([&] { return root.activePopover()->window()->windowType() == Qt::Tool && isActive(); }));
    EXPECT_TRUE(root.activePopover()->isDetached());
    second->field().setFocus();
    ASSERT_TRUE(xdotool(u"key x"_s));
    EXPECT_TRUE(waitFor([&] { return static_cast<QLineEdit&>(second->field()).text() == u"x"_s; }));
    ASSERT_TRUE(xdotool(u"key Escape"_s));
    EXPECT_TRUE(waitFor([&] { return !root.activePopover(); }));
}

} // namespace
