// SPDX-License-Identifier: MIT
#include "Platform/Linux/Strip/Strip.h"

#include "Platform/Linux/X11/X11Connection.h"
#include "Platform/Services/Appearance.h"
#include "Platform/Services/StatusBar.h"
#include "Platform/Views/StatusBarButton.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QProcess>
#include <QScreen>
#include <QWindow>

#include <gmock/gmock.h>

#include <cmath>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::waitFor;
using testing::AnyOf;
using testing::ElementsAre;

namespace {

struct PressCounter final : QObject {
    explicit PressCounter(QWindow& window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::MouseButtonPress;
        return false;
    }
    int count = 0;
};

// All in device pixels, as the X server has them.
class StripX11Test : public testing::Test {
protected:
    [[nodiscard]] QRect frame() const
    {
        const auto id = windowId();
        const auto geometry = x11Reply(xcb_get_geometry_reply(x, xcb_get_geometry(x, id), nullptr));
        const auto origin = x11Reply(
            xcb_translate_coordinates_reply(x, xcb_translate_coordinates(x, id, root->root, 0, 0), nullptr));
        return {origin->dst_x, origin->dst_y, geometry->width, geometry->height};
    }
    [[nodiscard]] xcb_window_t windowId() const { return xcb_window_t(item->button().window()->winId()); }

    xcb_connection_t* x = x11Connection();
    const xcb_screen_t* root = xcb_setup_roots_iterator(xcb_get_setup(x)).data;
    const bool hasWindowManager = !x11Values(x, root->root, "_NET_SUPPORTING_WM_CHECK").empty();
    const double scale = qApp->devicePixelRatio();
    const int height = int(std::lround(22 * scale));
    const int lastColumn = root->width_in_pixels - 1;

    Appearance appearance;
    Strip strip{appearance};
    StatusBar bar{strip};
    std::unique_ptr<StatusItem> item = bar.statusItem(101);
};

} // namespace

TEST_F(StripX11Test, StandsInTheCornerAndShowsWhatItPaintsAsItGrowsAndShrinks)
{
    auto* window = item->button().window();
    for (const int length : {101, 102, 157, 60, 131, 88}) {
        QImage dots(length, 16, QImage::Format_ARGB32_Premultiplied);
        dots.fill(Qt::transparent);
        for (int column = 0; column < length; column += 1 + column / 4)
            dots.setPixel(column, 7, 0xff000000);
        item->setImage({dots, true}, length);

        const auto width = std::lround(window->width() * scale);
        const auto covers = [&] {
            const auto now = frame();
            return now.top() == 0 && now.height() == height && now.width() == width
                && now.right() >= lastColumn && now.right() <= lastColumn + int(std::ceil(scale));
        };
        EXPECT_TRUE(waitFor(covers)) << length << ": " << frame().left() << ' ' << frame().width();
        const auto showsItsPicture = [&] {
            const QRect seen(0, 0, lastColumn - frame().left(), height);
            const auto screen = window->screen()->grabWindow(windowId()).toImage().copy(seen);
            return screen == window->grab().toImage().convertToFormat(screen.format()).copy(seen);
        };
        EXPECT_TRUE(waitFor(showsItsPicture)) << length;
    }
}

TEST_F(StripX11Test, ReservesItsHeightOnEveryDesktopEvenWhenShownAgainAtOnce)
{
    item.reset();
    item = bar.statusItem(50);
    const auto top = std::uint32_t(height), end = std::uint32_t(lastColumn);
    EXPECT_THAT(x11Values(x, windowId(), "_NET_WM_STRUT"), ElementsAre(0, 0, top, 0));
    EXPECT_THAT(x11Values(x, windowId(), "_NET_WM_STRUT_PARTIAL"),
        ElementsAre(0, 0, top, 0, 0, 0, 0, 0, 0, AnyOf(end, end - 1), 0, 0));
    EXPECT_TRUE(waitFor([&] { return x11Values(x, windowId(), "_NET_WM_DESKTOP") == std::vector{~0U}; }));
    if (!hasWindowManager)
        return;
    const auto freeFrom = [&](std::uint32_t row) {
        const auto area = x11Values(x, root->root, "_NET_WORKAREA");
        return area.size() >= 4 && area[1] == row;
    };
    EXPECT_TRUE(waitFor([&] { return freeFrom(top); }));
    item.reset();
    EXPECT_TRUE(waitFor([&] { return freeFrom(0); })) << "a strip without items must give its room back";
}

TEST_F(StripX11Test, IsPressedInItsCornersAndTakesNoFocus)
{
    const auto focus
        = [&] { return x11Reply(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr))->focus; };
    QWidget other;
    other.setGeometry(10, 100, 100, 100);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(waitFor([&] { return focus() == other.winId(); }));
    PressCounter presses(*item->button().window()->windowHandle());
    ASSERT_TRUE(waitFor([&] { return frame().width() >= int(101 * scale) && frame().top() == 0; }));
    for (const int row : {0, height - 1})
        QProcess::execute(u"xdotool"_s, u"mousemove %1 %2 click 1"_s.arg(lastColumn).arg(row).split(u' '));
    EXPECT_TRUE(waitFor([&] { return presses.count == 2; }));
    EXPECT_EQ(focus(), other.winId());
}

TEST_F(StripX11Test, IsOpaqueOnScreenAndTintsItsItemsToSuit)
{
    for (const auto scheme : {ColorScheme::dark, ColorScheme::light}) {
        appearance.setDesktopScheme(scheme);
        const auto text = item->button().tintColor();
        EXPECT_EQ(bar.statusItem(50)->button().tintColor(), text);
        EXPECT_TRUE(waitFor([&] {
            const auto picture = QGuiApplication::primaryScreen()->grabWindow().toImage();
            const int background = picture.pixelColor(lastColumn, 0).lightness();
            const int contrast = text.lightness() - background;
            return background > 10 && (scheme == ColorScheme::dark ? contrast > 150 : contrast < -150);
        }));
    }
}
