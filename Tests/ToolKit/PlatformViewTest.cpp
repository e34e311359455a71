// SPDX-License-Identifier: MIT
#include "ToolKit/Views/PlatformView.h"
#include "Support/WaitFor.h"
#include "ToolKit/Views/PlatformToolTip.h"

#include <QContextMenuEvent>
#include <QCursor>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;

namespace {

/// Records the calls of its hooks. The hooks for the mouse are recorded apart, since the others are called at
/// any time.
struct Probe : public PlatformView {
    using PlatformView::PlatformView;

    void setup() override { calls += u"setup "_s; }
    void draw(QPainter& context) override { calls += cgContext() == &context ? u"draw "_s : u"odd "_s; }
    void layoutContent() override { calls += u"layout "_s; }
    void mouseDown(QPointF at) override { mouse += u"down %1,%2 "_s.arg(at.x()).arg(at.y()); }
    void hover(QPointF at) override { mouse += u"hover %1,%2 "_s.arg(at.x()).arg(at.y()); }
    void hoverEnded() override { mouse += u"ended "_s; }

    QString calls;
    QString mouse;
};

/// A window with two views at the same place, the front one with a widget in it.
class PlatformViewTest : public testing::Test {
protected:
    PlatformViewTest()
    {
        QCursor::setPos(700, 700); // outside
        window.setGeometry(100, 100, 300, 200);
        back.setGeometry(50, 40, 100, 80);
        front.setGeometry(50, 40, 100, 80);
        child.setGeometry(60, 50, 40, 30);
        window.show();
        waitFor([&] { return front.calls.contains(u"draw"_s) && back.calls.contains(u"draw"_s); });
    }
    /// The calls of the mouse hooks of `view` that `action` causes.
    QString by(Probe& view, const std::function<void()>& action)
    {
        view.mouse.clear();
        action();
        return view.mouse;
    }
    void move(QPoint to) { QTest::mouseMove(window.windowHandle(), to); }
    void click(Qt::MouseButton button, QPoint at)
    {
        QTest::mouseClick(window.windowHandle(), button, {}, at);
    }

    QWidget window;
    Probe back{&window};
    Probe front{&window};
    QWidget child{&front};
};

TEST_F(PlatformViewTest, IsSetUpLaidOutAndDrawnOnRequestAndOnlyWithBounds)
{
    EXPECT_EQ(std::exchange(front.calls, {}), u"setup layout draw "_s);
    const auto request = [&] {
        front.setViewNeedsLayout(true);
        front.setViewNeedsRedraw(true);
    };
    std::thread(request).join();
    QCoreApplication::processEvents();
    EXPECT_TRUE(front.viewNeedsLayout() && front.viewNeedsRedraw());
    EXPECT_EQ(front.calls, QString()) << "another thread requests nothing";
    request();
    request();
    EXPECT_EQ(front.calls, QString()) << "not at once";
    EXPECT_TRUE(waitFor([&] { return front.calls == u"layout draw "_s; })) << front.calls.toStdString();
    front.resize(0, 50);
    request();
    QCoreApplication::processEvents();
    EXPECT_EQ(front.calls, u"layout draw "_s);
}

TEST_F(PlatformViewTest, LetsTheMouseThroughUnlessInteractionIsEnabled)
{
    const QPoint at(120, 100); // in the widget within
    back.setInteractionEnabled(true);
    EXPECT_EQ(window.childAt(at), &back);
    EXPECT_EQ(by(front, [&] { click(Qt::LeftButton, at); }), QString());
    EXPECT_TRUE(back.mouse.endsWith(u"ended down 70,60 "_s)) << back.mouse.toStdString();
    front.setInteractionEnabled(true);
    back.mouse.clear();
    EXPECT_TRUE(by(front, [&] { click(Qt::RightButton, at); }).endsWith(u"ended down 70,60 "_s));
    EXPECT_FALSE(by(front, [&] { click(Qt::MiddleButton, at); }).contains(u"down"_s));
    EXPECT_FALSE(back.mouse.contains(u"down"_s));
    front.setInteractionEnabled(false);
    EXPECT_FALSE(front.trackingArea());
    EXPECT_EQ(by(front, [&] { click(Qt::LeftButton, at); }), QString());
}

TEST_F(PlatformViewTest, FollowsThePointerOverItselfAndWhatItContains)
{
    QCursor::setPos(window.mapToGlobal(QPoint(70, 60)));
    QCoreApplication::processEvents();
    EXPECT_EQ(by(front, [&] { front.setInteractionEnabled(true); }), u"hover 20,20 "_s) << "at once";
    EXPECT_EQ(by(front, [&] { front.resize(10, 10); }), u"ended "_s) << "the bounds have moved away";
    front.resize(100, 80);
    EXPECT_EQ(front.trackingArea(), QRect(0, 0, 100, 80));
    EXPECT_TRUE(by(front, [&] { move({120, 100}); }).endsWith(u"hover 70,60 "_s));
    EXPECT_EQ(by(front, [&] { move({121, 100}); }), u"hover 71,60 "_s);
    QTest::mousePress(window.windowHandle(), Qt::MiddleButton, {}, {121, 100});
    EXPECT_EQ(by(front, [&] { move({122, 100}); }), QString()) << "a drag is no hover";
    QTest::mouseRelease(window.windowHandle(), Qt::MiddleButton, {}, {122, 100});
    EXPECT_TRUE(by(front, [&] { move({10, 10}); }).endsWith(u"ended "_s));
    move({120, 100});
    EXPECT_EQ(by(front, [&] { window.hide(); }), u"ended "_s);
}

TEST_F(PlatformViewTest, MayBeDeletedByAPress)
{
    struct Mayfly : public Probe {
        using Probe::Probe;
        void hoverEnded() override { delete this; }
    };
    QCursor::setPos(window.mapToGlobal(QPoint(5, 5)));
    auto* mayfly = new Mayfly(&window);
    const QPointer<QWidget> view = mayfly;
    mayfly->resize(20, 20);
    mayfly->show();
    mayfly->setInteractionEnabled(true);
    ASSERT_TRUE(view);
    click(Qt::LeftButton, {5, 5});
    EXPECT_FALSE(view);
}

TEST_F(PlatformViewTest, KeepsTheMenusBehindItForTheKeyboard)
{
    front.setInteractionEnabled(true);
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QContextMenuEvent asked(reason, {1, 1}, child.mapToGlobal(QPoint(1, 1)), Qt::NoModifier);
        QCoreApplication::sendEvent(&child, &asked);
        EXPECT_EQ(asked.isAccepted(), reason == QContextMenuEvent::Mouse);
    }
}

TEST(PlatformToolTip, StacksItsTextsAndSizesItselfToThem)
{
    const auto sizeWithOnly = [](void (PlatformToolTip::*setText)(const QString&), const QString& text) {
        PlatformToolTip tip;
        tip.setContentPadding({});
        (tip.*setText)(text);
        return tip.size();
    };
    const QSize headline = sizeWithOnly(&PlatformToolTip::setHeadline, u"Headline"_s);
    const QSize label = sizeWithOnly(&PlatformToolTip::setLabel, u"**Two**\nlines"_s);
    const QSize sublabel = sizeWithOnly(&PlatformToolTip::setSublabel, u"The widest of all three lines"_s);
    EXPECT_GT(label.height(), 2 * headline.height()) << "two lines of a larger font";
    PlatformToolTip tip;
    tip.setLabelSpacing(3);
    tip.setLabel(u"**Two**\nlines"_s);
    EXPECT_EQ(tip.labelPosition(), QPointF(9, 4)) << "nothing is kept for a headline";
    tip.setHeadline(u"Headline"_s);
    tip.setSublabel(u"The widest of all three lines"_s);
    EXPECT_EQ(tip.accessibleName(), u"Headline\nTwo\nlines\nThe widest of all three lines"_s);
    tip.setContentPadding({1, 2, 3, 4});
    EXPECT_EQ(tip.headlinePosition(), QPointF(1, 2));
    EXPECT_EQ(tip.labelPosition(), QPointF(1, headline.height() + 5));
    EXPECT_EQ(tip.sublabelPosition(), QPointF(1, headline.height() + label.height() + 8));
    EXPECT_NEAR(tip.height(), headline.height() + label.height() + sublabel.height() + 15, 2);
    EXPECT_EQ(tip.width(), sublabel.width() + 4);
    std::thread([&] { tip.setSublabelFontSize(20); }).join();
    EXPECT_EQ(tip.width(), sublabel.width() + 4) << "another thread only stores the value";
    tip.updateLayout();
    EXPECT_GT(tip.width(), 1.8 * sublabel.width());
    tip.setContentPadding({std::nan(""), -1e300, 0, 0});
    EXPECT_TRUE(tip.size().isEmpty());
}

TEST(PlatformToolTip, StaysWithinItsContainer)
{
    PlatformToolTip tip;
    tip.resize(100, 30);
    QWidget container;
    container.resize(200, 150);
    const std::pair<QPointF, QPoint> cases[] = {{{50, 100}, {50, 65}}, {{100, 35}, {100, 0}},
        {{101, 34}, {1, 39}}, // one too far to the right, one too high
        {{0.5, 40.5}, {1, 6}}, {{-3, 100}, {1, 65}}, {{HUGE_VAL, std::nan("")}, {QWIDGETSIZE_MAX, 0}}};
    for (const auto& [wanted, origin] : cases)
        EXPECT_EQ(tip.position(wanted.x(), wanted.y(), container), origin);
}

TEST(PlatformToolTip, DrawsItsTextsInItsColors)
{
    PlatformToolTip tip;
    tip.setLabel(u"████"_s);
    tip.setTitleColor(Qt::green);
    for (const QColor base : {Qt::white, Qt::black, Qt::red}) {
        tip.setPalette(QPalette(Qt::gray, Qt::gray, Qt::gray, Qt::gray, Qt::gray, Qt::gray, base));
        tip.setBgColor(base == Qt::red ? base : QColor());
        const QImage image = tip.grab().toImage();
        EXPECT_EQ(image.pixelColor(5, tip.height() / 2), base);
        EXPECT_NE(image.pixelColor(0, 0), base) << "a round corner";
        EXPECT_GT(image.pixelColor(tip.rect().center()).saturation(), 200) << "the green text";
    }
}

} // namespace
