// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarStatusItemRenderer.h"
#include "Platform/Resources/Bundle.h"

#include "MenubarHelper/TestDesktop.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <gmock/gmock.h>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::helper;

namespace {

struct PaintCounter final : QObject {
    PaintCounter() { qApp->installEventFilter(this); }
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

class MenubarStatusItemRendererTest : public testing::Test {
protected:
    void SetUp() override
    {
        data.expectedWorkingTime = 8 * 3600;
        data.inactiveTotalTimeToday = 2 * 3600;
        ASSERT_TRUE(test::waitFor([this] { return desktop.window.isActiveWindow(); }));
    }

    void update()
    {
        renderer.data = data;
        renderer.update();
        QApplication::processEvents();
        QEvent paintNow(QEvent::UpdateRequest); // what has to be painted, and not in some milliseconds
        QApplication::sendEvent(&desktop.window, &paintNow);
    }
    void moveTo(const QScreen& screen)
    {
        desktop.window.windowHandle()->setScreen(const_cast<QScreen*>(&screen));
        desktop.window.move(screen.geometry().topLeft() + QPoint(40, 40));
        ASSERT_TRUE(
            test::waitFor([&] { return desktop.window.devicePixelRatioF() == screen.devicePixelRatio(); }));
        QApplication::processEvents();
    }
    [[nodiscard]] const QImage& pill() const { return item->button().image().pixels; }
    [[nodiscard]] QImage shown() { return desktop.window.grab().toImage(); }
    [[nodiscard]] QTimer* clock() const { return renderer.findChild<QTimer*>(); }

    static constexpr QRgb red = 0xFFFF0000;

    test::TestDesktop desktop;
    std::unique_ptr<platform::StatusItem> item
        = desktop.statusBar.statusItem(platform::StatusItem::variableLength);
    std::optional<platform::Screen> mainScreen = platform::Screen();
    MenubarStatusItemRenderer renderer{*item, desktop.services(), [this] { return mainScreen; }};
    MenubarStatusItemData data;
};

// The smallest rectangle around all pixels that `isOne` picks.
QRect boundsOf(const QImage& image, auto isOne)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (isOne(image.pixel(x, y)))
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

TEST_F(MenubarStatusItemRendererTest, IsCrispAndCentredAtEveryScale)
{
    data.activeColor = red & 0xFFFFFF;
    data.menuBarShowDayProgress = true;
    data.menuBarShowDailyTotal = true;
    update();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const double scale = screen->devicePixelRatio();
        SCOPED_TRACE(scale);
        moveTo(*screen);
        const int height = int(std::lround(16 * scale));
        ASSERT_EQ(pill().devicePixelRatio(), scale) << "drawn again for the screen that it came to";
        EXPECT_EQ(pill().height(), height);
        for (const int y : {0, height - 1})
            EXPECT_EQ(qAlpha(pill().pixel(pill().width() / 2, y)), 255) << "no blurred edge";

        // The only holes are digits, which all are as high as capitals.
        const QImage middle = pill().copy(pill().width() / 4, 0, pill().width() / 2, height);
        const QRect digits = boundsOf(middle, [](QRgb pixel) { return qAlpha(pixel) < 64; });
        EXPECT_LE(std::abs(digits.top() - (height - 1 - digits.bottom())), 1);

        const QImage bar = shown();
        const QRect ring = boundsOf(bar, [](QRgb pixel) { return qRed(pixel) > 2 * qGreen(pixel) + 60; });
        EXPECT_EQ(ring.width(), ring.height()) << "nothing of the ring is cut off";
        EXPECT_LE(std::abs(ring.height() - 10 * scale), 1);
        const QRect dark = boundsOf(bar, [](QRgb pixel) { return qRed(pixel) < 64; });
        EXPECT_EQ(dark.height(), height) << "the pill goes to whole pixels of the screen";
        EXPECT_LE(std::abs((ring.top() - dark.top()) - (dark.bottom() - ring.bottom())), 1);
    }
}

TEST_F(MenubarStatusItemRendererTest, PunchesHalfAHoleForWhatIsHalfTransparent)
{
    data.menuBarShowDayProgress = true;
    data.inactiveTotalTimeToday = 4 * 3600;
    update();
    const QPoint center(pill().width() / 2, pill().height() / 2);
    const auto alphaAt = [&](int dx) { return qAlpha(pill().pixel(center + QPoint(dx, 0))); };
    EXPECT_EQ(alphaAt(0), 255);
    EXPECT_NEAR(alphaAt(3), 0.6 * 255, 2) << "the first half of the day, on the right";
    EXPECT_LE(alphaAt(-4), 10);
    EXPECT_TRUE(item->button().image().isTemplate);
}

TEST_F(MenubarStatusItemRendererTest, PaintsOverTimeInTheColourOfTheAppearance)
{
    data.menuBarShowDayProgress = true;
    data.inactiveTotalTimeToday = 16 * 3600;
    const auto color = platform::Bundle::named(u"Quor"_s).color(u"cellWarningColor"_s);
    ASSERT_TRUE(color);
    update();
    for (const auto scheme : {platform::ColorScheme::light, platform::ColorScheme::dark}) {
        desktop.appearance.setDesktopScheme(scheme);
        const QImage bar = shown();
        const QRgb expected = color->resolved(scheme).rgb();
        EXPECT_FALSE(boundsOf(bar, [&](QRgb pixel) { return (pixel | 0xFF000000) == expected; }).isEmpty());
    }
}

TEST_F(MenubarStatusItemRendererTest, PaintsOnlyWhatHasVisiblyChanged)
{
    data.activeColor = red & 0xFFFFFF;
    data.menuBarShowDayProgress = true;
    data.menuBarShowActiveTask = true;
    data.menuBarShowDailyTotal = true;
    data.taskName = u"A name much longer than the ninety pixels it gets"_s;
    update();
    const PaintCounter counter;
    data.nonWorkingTime += 1;
    *data.taskName += u" - of which the end is never seen"_s;
    update();
    EXPECT_EQ(counter.paints, 0);
    for (int second = 0; second < 120; ++second) {
        data.nonWorkingTime += 1;
        update();
    }
    EXPECT_GT(counter.paints, 0) << "small steps add up";
}

TEST_F(MenubarStatusItemRendererTest, KeepsTheIdleClockGoingAndNothingElse)
{
    update();
    EXPECT_EQ(clock()->intervalAsDuration(), std::chrono::seconds(60));
    const QImage before = pill();
    desktop.clock.advance(20 * 60);
    QMetaObject::invokeMethod(clock(), "timeout");
    EXPECT_NE(pill(), before);
    for (const auto& [active, total] : {std::pair(true, false), {false, true}, {false, false}}) {
        data.trackerActive = active; // then the main application's updates drive the display
        data.menuBarShowDailyTotal = total;
        update();
        EXPECT_EQ(clock()->isActive(), !active && !total);
    }
    data.activeColor = red & 0xFFFFFF;
    update();
    const auto dot = [&] { return boundsOf(shown(), [](QRgb pixel) { return pixel == red; }); };
    EXPECT_FALSE(dot().isEmpty());
    renderer.stop();
    EXPECT_FALSE(clock()->isActive());
    EXPECT_TRUE(dot().isEmpty());
}

TEST_F(MenubarStatusItemRendererTest, TakesTwoLinesBesideANotchAndKeepsTheHeightWithoutText)
{
    data.taskName = u"Design"_s;
    data.trackerActive = true;
    data.activeStartTimes = {platform::secondsSince1970(desktop.clock.now()) - 90};
    data.menuBarShowActiveTask = true;
    data.menuBarShowRunningTimer = true;
    data.menuBarShowDailyTotal = true;
    update();
    EXPECT_EQ(pill().height(), 16);
    EXPECT_EQ(item->button().accessibleName(), u"Design 00:01 \u2215 02:01"_s);
    const double oneLine = item->length();
    mainScreen->auxiliaryTopLeftArea = QRectF(0, 0, 600, 32);
    update();
    EXPECT_EQ(pill().height(), 21);
    EXPECT_LT(item->length(), oneLine);

    renderer.data = {};
    renderer.update();
    EXPECT_EQ(pill().height(), 21) << "no text: as before";
}

TEST_F(MenubarStatusItemRendererTest, ClipsLongNamesAndSurvivesHugeOnes)
{
    data.menuBarShowActiveTask = true;
    data.taskName = QString(60, u'M');
    update();
    EXPECT_EQ(item->length(), 2 * 7 + 90);
    const QImage before = pill();
    data.taskName = QString(8'000'000, u'M');
    update();
    EXPECT_EQ(pill(), before);
}

} // namespace
