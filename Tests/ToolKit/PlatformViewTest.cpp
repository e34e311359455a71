// SPDX-License-Identifier: MIT
#include "ToolKit/Views/PlatformView.h"
#include "Support/WaitFor.h"
#include "ToolKit/Drawing/SystemFont.h"
#include "ToolKit/Drawing/TextDrawing.h"
#include "ToolKit/Views/PlatformToolTip.h"

#include <QApplication>
#include <QCursor>
#include <QRegularExpression>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;

namespace {

/// Writes down its hooks.
class Probe : public PlatformView {
public:
    using PlatformView::PlatformView;

    [[nodiscard]] QStringList taken() { return std::exchange(calls, {}); }
    [[nodiscard]] QStringList takenOfMouse() { return taken().filter(QRegularExpression(u"[,]|ended"_s)); }

    QStringList calls;

protected:
    void setup() override { calls += u"setup"_s; }
    void draw(QPainter& context) override { calls += cgContext() == &context ? u"draw"_s : u"odd"_s; }
    void layoutContent() override { calls += u"layout"_s; }
    void mouseDown(QPointF at) override { calls += u"down %1,%2"_s.arg(at.x()).arg(at.y()); }
    void hover(QPointF at) override { calls += u"hover %1,%2"_s.arg(at.x()).arg(at.y()); }
    void hoverEnded() override { calls += u"ended"_s; }
};

/// A window with two views at the same place, the front one with a button in it.
class PlatformViewTest : public testing::Test {
protected:
    PlatformViewTest()
    {
        QCursor::setPos(700, 700); // outside
        window.setGeometry(100, 100, 300, 200);
        for (Probe* view : {&back, &front})
            view->setGeometry(50, 40, 100, 80);
        child.setGeometry(60, 50, 40, 30);
        window.show();
        waitFor([&] { return front.calls.contains(u"draw"_s) && back.calls.contains(u"draw"_s); });
    }
    void move(int x, int y) { QTest::mouseMove(window.windowHandle(), {x, y}); }
    void click(Qt::MouseButton button, int x, int y)
    {
        QTest::mouseClick(window.windowHandle(), button, {}, {x, y});
    }

    QWidget window;
    Probe back{&window};
    Probe front{&window};
    QWidget child{&front};
};

TEST_F(PlatformViewTest, IsSetUpLaidOutAndDrawnOnRequestAndOnlyWithBounds)
{
    EXPECT_EQ(front.taken(), (QStringList{u"setup"_s, u"layout"_s, u"draw"_s}));
    EXPECT_EQ(front.cgContext(), nullptr);
    std::thread([&] {
        front.setViewNeedsLayout(true);
        front.setViewNeedsRedraw(true);
    }).join();
    QCoreApplication::processEvents();
    EXPECT_TRUE(front.viewNeedsLayout() && front.viewNeedsRedraw());
    EXPECT_EQ(front.taken(), QStringList()) << "another thread asks for nothing";
    front.setViewNeedsLayout(true);
    front.setViewNeedsLayout(true);
    front.setViewNeedsRedraw(true);
    EXPECT_EQ(front.calls, QStringList()) << "not at once";
    EXPECT_TRUE(waitFor([&] { return front.calls.size() == 2; }));
    EXPECT_EQ(front.taken(), (QStringList{u"layout"_s, u"draw"_s}));
    front.resize(0, 50);
    front.setViewNeedsLayout(true);
    front.setViewNeedsRedraw(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(front.taken(), QStringList());
}

TEST_F(PlatformViewTest, LetsTheMouseThroughUnlessInteractionIsEnabled)
{
    back.setInteractionEnabled(true);
    (void)back.taken();
    (void)front.taken();
    EXPECT_FALSE(front.trackingArea());
    EXPECT_EQ(window.childAt(60, 50), &back);
    move(60, 50);
    click(Qt::LeftButton, 60, 50);
    EXPECT_EQ(back.takenOfMouse(), (QStringList{u"hover 10,10"_s, u"ended"_s, u"down 10,10"_s}));
    EXPECT_EQ(front.taken(), QStringList());

    front.setInteractionEnabled(true);
    front.resize(90, 80);
    EXPECT_EQ(front.trackingArea(), QRect(0, 0, 90, 80));
    (void)front.taken();
    (void)back.taken();
    click(Qt::RightButton, 65, 50);
    click(Qt::MiddleButton, 65, 50);
    EXPECT_EQ(front.takenOfMouse().last(2), (QStringList{u"ended"_s, u"down 15,10"_s}));
    EXPECT_EQ(back.taken().filter(u"down"_s), QStringList());
    front.setInteractionEnabled(false);
    (void)front.taken();
    click(Qt::LeftButton, 120, 100);
    EXPECT_EQ(front.taken(), QStringList()) << "also within the view in it";
    EXPECT_EQ(back.taken().filter(u"down"_s), QStringList{u"down 70,60"_s});
}

TEST_F(PlatformViewTest, FollowsThePointerOverItselfAndWhatItContains)
{
    QCursor::setPos(window.mapToGlobal(QPoint(70, 60)));
    QCoreApplication::processEvents();
    (void)front.taken();
    front.setInteractionEnabled(true);
    EXPECT_EQ(front.taken(), QStringList{u"hover 20,20"_s}) << "at once, though nothing has moved";
    front.resize(10, 10);
    EXPECT_EQ(front.taken(), (QStringList{u"ended"_s, u"layout"_s})) << "the bounds have moved away";
    front.resize(100, 80);
    (void)front.taken();
    move(120, 100); // in the view within
    EXPECT_EQ(front.takenOfMouse().last(), u"hover 70,60"_s);
    move(121, 100);
    EXPECT_EQ(front.takenOfMouse(), QStringList{u"hover 71,60"_s});
    QTest::mousePress(window.windowHandle(), Qt::MiddleButton, {}, {121, 100});
    move(122, 100);
    EXPECT_EQ(front.takenOfMouse(), QStringList()) << "a drag is no hover";
    QTest::mouseRelease(window.windowHandle(), Qt::MiddleButton, {}, {122, 100});
    move(10, 10);
    EXPECT_EQ(front.takenOfMouse().last(), u"ended"_s);
}

TEST(PlatformToolTip, SizesItselfToItsLines)
{
    const auto height = [](const QString& text, double size) {
        return textSize(text, monospacedDigitFont(size, QFont::Normal), false).height();
    };
    PlatformToolTip tip;
    EXPECT_EQ(tip.size(), QSize(18, 8));
    tip.move(7, 6);
    tip.setLabelSpacing(3);
    tip.setLabel(u"**Label**\nof two lines"_s);
    EXPECT_EQ(tip.labelPosition(), QPointF(9, 4)) << "nothing is kept for a headline";
    const double labelHeight = textSize(u"x\nx"_s, monospacedDigitFont(12, QFont::Normal), false).height();
    EXPECT_NEAR(tip.height(), std::ceil(labelHeight + 3) + 8, 1);
    const int narrow = tip.width();
    tip.setHeadline(u"Headline"_s);
    tip.setSublabel(u"The widest of all three lines"_s);
    tip.setContentPadding({1, 2, 3, 4});
    const double small = height(u"x"_s, 10);
    EXPECT_EQ(tip.headlinePosition(), QPointF(1, 2));
    EXPECT_EQ(tip.labelPosition(), QPointF(1, 2 + std::ceil(small) + 3));
    EXPECT_NEAR(tip.sublabelPosition().y(), tip.labelPosition().y() + std::ceil(labelHeight) + 3, 1);
    EXPECT_NEAR(tip.height(), std::ceil(2 * small + labelHeight + 9) + 6, 1);
    EXPECT_EQ(tip.width(),
        4 + std::ceil(textSize(tip.sublabel(), monospacedDigitFont(10, QFont::Normal), false).width()));
    const int wide = tip.width();
    EXPECT_GT(wide, narrow);
    EXPECT_EQ(tip.pos(), QPoint(7, 6));
    std::thread([&] { tip.setSublabelFontSize(20); }).join();
    EXPECT_EQ(tip.width(), wide) << "another thread only leaves the value";
    tip.updateLayout();
    EXPECT_GT(tip.width(), 1.8 * wide);
    tip.setContentPadding({std::nan(""), -1e300, 0, 0});
    EXPECT_LE(tip.width() + tip.height(), 0);
}

TEST(PlatformToolTip, StaysWithinItsContainer)
{
    PlatformToolTip tip;
    tip.resize(100, 30);
    QWidget container;
    container.resize(200, 150);
    const std::pair<QPointF, QPoint> cases[] = {
        {{50, 100}, {50, 65}},
        {{100, 35}, {100, 0}},
        {{101, 34}, {1, 39}}, // one too far to the right, one too high
        {{0.5, 40.5}, {1, 6}},
        {{99.9, 200}, {100, 165}},
        {{-3, 100}, {1, 65}},
        {{std::numeric_limits<double>::infinity(), std::nan("")}, {QWIDGETSIZE_MAX, 0}},
    };
    for (const auto& [wanted, origin] : cases)
        EXPECT_EQ(tip.position(wanted.x(), wanted.y(), container), origin);
    container.resize(90, 150);
    EXPECT_EQ(tip.position(20, 100, container), QPoint(1, 65)) << "room on neither side";
}

TEST(PlatformToolTip, DrawsItsTextsInItsColors)
{
    PlatformToolTip tip;
    tip.setLabel(u"████"_s);
    tip.setTitleColor(Qt::green);
    for (const auto scheme : {Qt::white, Qt::black}) {
        QPalette palette;
        palette.setColor(QPalette::Base, scheme);
        tip.setPalette(palette);
        const QImage image = tip.grab().toImage();
        EXPECT_EQ(image.pixelColor(5, tip.height() / 2), QColor(scheme)) << "as the palette has it";
        EXPECT_GT(image.pixelColor(QRect({}, tip.size()).center()).saturation(), 200) << "the green text";
    }
    tip.setBgColor(Qt::red);
    const QImage image = tip.grab().toImage();
    EXPECT_EQ(image.pixelColor(5, tip.height() / 2), QColor(Qt::red));
    EXPECT_NE(image.pixelColor(0, 0), QColor(Qt::red)) << "a round corner";
}

} // namespace
