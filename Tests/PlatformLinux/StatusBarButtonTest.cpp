// SPDX-License-Identifier: MIT
#include "Platform/Views/StatusBarButton.h"

#include "Support/WaitFor.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QScreen>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

using namespace quor::platform;
using quor::test::waitFor;

namespace {

constexpr QRgb barColor = 0xff20a020;

// Counts what its button paints, too.
class Bar final : public QWidget {
public:
    Bar()
    {
        setPalette(QColor(barColor));
        setAutoFillBackground(true);
        resize(80, 40);
        button.setGeometry(7, 3, 61, 22);
        button.installEventFilter(this);
        show();
        waitFor([&] { return paints > 0; });
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return QWidget::eventFilter(watched, event);
    }
    // Whether the event loop finds something to paint.
    bool repaints()
    {
        const int before = paints;
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        return paints > before;
    }
    void press(QPoint at, Qt::MouseButton which)
    {
        auto* target = childAt(at);
        QMouseEvent event(QEvent::MouseButtonPress, target->mapFrom(this, at), mapToGlobal(at), which, which,
            Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }

    int paints = 0;
    StatusBarButton button{this};
};

// A pattern of one device pixel: anything but pixel upon pixel smears it.
TemplateImage checkers(double scale, bool isTemplate)
{
    QImage image(int(std::ceil(40 * scale)), int(std::ceil(16 * scale)), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, (x + y) % 2 ? 0xff0000ff : 0);
    }
    image.setDevicePixelRatio(scale);
    return {image, isTemplate};
}

} // namespace

TEST(StatusBarButtonTest, PaintsPixelUponPixelAndTintsTemplates)
{
    Bar bar;
    const auto scale = bar.devicePixelRatioF();
    bar.button.setTintColor(0xffff8000);
    for (const bool isTemplate : {true, false}) {
        const auto image = checkers(scale, isTemplate);
        bar.button.setImage(image);
        const auto picture = bar.grab().toImage();
        const auto origin = (QPointF(bar.button.pos()) + bar.button.imageOrigin()) * scale;
        ASSERT_EQ(origin, QPointF(origin.toPoint()));
        const auto centre = (QPointF(bar.button.geometry().topLeft()) + QPointF(30.5, 11)) * scale;
        EXPECT_LE(std::abs(origin.x() + image.pixels.width() / 2.0 - centre.x()), 0.5);
        EXPECT_LE(std::abs(origin.y() + image.pixels.height() / 2.0 - centre.y()), 0.5);
        int wrong = 0;
        for (int y = 0; y < image.pixels.height(); ++y) {
            for (int x = 0; x < image.pixels.width(); ++x) {
                const QRgb ink = isTemplate ? 0xffff8000 : 0xff0000ff;
                const auto expected = (x + y) % 2 ? ink : barColor;
                wrong += picture.pixel(origin.toPoint() + QPoint(x, y)) != expected;
            }
        }
        EXPECT_EQ(wrong, 0) << "template " << isTemplate << ", scale " << scale;
    }
}

TEST(StatusBarButtonTest, RepaintsOnlyForWhatShows)
{
    Bar bar;
    auto& button = bar.button;
    const auto scale = bar.devicePixelRatioF();
    auto other = checkers(scale, true);
    other.pixels.setPixel(0, 0, 0x80000000);
    const struct {
        const char* what;
        bool shows;
        std::function<void()> change;
    } cases[]{
        {"an image", true, [&] { button.setImage(checkers(scale, true)); }},
        {"an equal image", false, [&] { button.setImage(checkers(scale, true)); }},
        {"the same tint", false, [&] { button.setTintColor(button.tintColor()); }},
        {"highlighted", true, [&] { button.highlight(true); }},
        {"another tint", true, [&] { button.setTintColor(Qt::white); }},
        {"one pixel", true, [&] { button.setImage(other); }},
        {"another scale", true, [&] { button.setImage(checkers(scale * 2, true)); }},
        {"no longer highlighted", true, [&] { button.highlight(false); }},
        {"no image", true, [&] { button.setImage({}); }},
    };
    for (const auto& c : cases) {
        const auto before = bar.grab().toImage();
        c.change();
        EXPECT_EQ(bar.repaints(), c.shows) << c.what;
        EXPECT_EQ(bar.grab().toImage() != before, c.shows) << c.what;
    }
}

TEST(StatusBarButtonTest, IsPressedThroughItsChildrenAndByAssistiveTools)
{
    Bar bar;
    QWidget child(&bar.button), grandchild(&child);
    child.setGeometry(10, 0, 30, 20);
    grandchild.setGeometry(5, 5, 10, 10);
    child.show();
    int presses = 0;
    QObject::connect(&bar.button, &StatusBarButton::mouseDown, [&] { ++presses; });
    for (const auto at : {QPoint(8, 4), QPoint(25, 10), QPoint(45, 10)}) {
        for (const auto which : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
            bar.press(at, which);
    }
    EXPECT_EQ(presses, 6);

    auto* accessible = QAccessible::queryAccessibleInterface(&bar.button);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(waitFor([&] { return presses == 7; }));
}

TEST(StatusBarButtonTest, TellsWhenItComesToAScreenOfAnotherScale)
{
    Bar bar;
    std::vector<double> told;
    QObject::connect(&bar.button, &StatusBarButton::backingScaleChanged,
        [&] { told.push_back(bar.button.devicePixelRatioF()); });
    const auto screens = QGuiApplication::screens();
    ASSERT_EQ(screens.size(), 2);
    for (const auto index : {0, 1, 1, 0})
        bar.setScreen(screens[index]);
    EXPECT_EQ(told, (std::vector{screens[1]->devicePixelRatio(), screens[0]->devicePixelRatio()}));
}
