// SPDX-License-Identifier: MIT
#include "Platform/Linux/Strip.h"

#include "Platform/Services/Appearance.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Views/StatusBarButton.h"
#include "Support/WaitFor.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

using namespace quor::platform;
using quor::test::waitFor;

namespace {

class StripTest : public testing::Test {
protected:
    static QRect onScreen(const StatusItem& item)
    {
        return {item.button().mapToGlobal(QPoint()), item.button().size()};
    }
    static TemplateImage imageOfWidth(int width)
    {
        return {QImage(width, 16, QImage::Format_ARGB32_Premultiplied), true};
    }

    Appearance appearance;
    Strip strip{appearance};
    StatusBar bar{strip};
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
};

} // namespace

TEST_F(StripTest, GrowsToTheLeftAsItemsComeAndChange)
{
    auto first = bar.statusItem(100);
    const auto before = onScreen(*first);
    EXPECT_EQ(before.topRight(), screen.topRight());
    EXPECT_EQ(before.height(), bar.thickness());
    EXPECT_GE(before.width(), 100);

    const auto second = bar.statusItem(StatusItem::variableLength);
    const auto empty = onScreen(*second);
    EXPECT_EQ(onScreen(*first), before);
    EXPECT_EQ(empty.right() + 1, before.left());
    EXPECT_GT(empty.width(), 0) << "an item without content must be there to press";

    first->setLength(140.2);
    EXPECT_EQ(onScreen(*first).topRight(), screen.topRight());
    EXPECT_EQ(onScreen(*first).width(), before.width() + 41);
    EXPECT_EQ(onScreen(*second).right() + 1, onScreen(*first).left());

    second->button().setImage(imageOfWidth(80));
    EXPECT_TRUE(waitFor([&] { return onScreen(*second).width() >= 80; }));
    EXPECT_EQ(second->button().window()->geometry().left(), onScreen(*second).left());

    bar.removeStatusItem(std::move(first));
    EXPECT_EQ(onScreen(*second).topRight(), screen.topRight());
}

TEST_F(StripTest, IsThereOnlyWhileItHasAnItem)
{
    auto item = bar.statusItem(50);
    const auto* window = item->button().window();
    ASSERT_NE(window, &item->button());
    EXPECT_TRUE(window->isVisible());
    bar.removeStatusItem(std::move(item));
    EXPECT_TRUE(waitFor([&] { return !window->isVisible(); }));
    item = bar.statusItem(50);
    EXPECT_TRUE(window->isVisible() && item->button().isVisible());
}
