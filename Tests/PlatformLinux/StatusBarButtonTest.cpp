// SPDX-License-Identifier: MIT
#include "Platform/Views/StatusBarButton.h"

#include "Support/WaitFor.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>

using namespace quor::platform;
using quor::test::waitFor;

namespace {

constexpr QRgb barColor = 0xff20a020;

// Counts what its button paints, too.
struct Bar final : QWidget {
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
    bool repaints() const
    {
        const int before = paints;
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        return paints > before;
    }

    int paints = 0;
    StatusBarButton button{this};
};

// A pattern of one device pixel: anything but pixel upon pixel smears it.
QImage checkers(double scale, QRgb ink = 0xff0000ff, QRgb paper = 0)
{
    QImage image(int(std::ceil(40 * scale)), int(std::ceil(16 * scale)), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, (x + y) % 2 ? ink : paper);
    }
    image.setDevicePixelRatio(scale);
    return image;
}

} // namespace

TEST(StatusBarButtonTest, PaintsPixelUponPixelAndTintsTemplates)
{
    Bar bar;
    const auto scale = bar.devicePixelRatioF();
    bar.button.setTintColor(0xffff8000);
    for (const bool isTemplate : {true, false}) {
        const TemplateImage image{checkers(scale), isTemplate};
        bar.button.setImage(image);
        const auto picture = bar.grab().toImage();
        const auto origin = (QPointF(bar.button.pos()) + bar.button.imageOrigin()) * scale;
        ASSERT_EQ(origin, QPointF(origin.toPoint()));
        const auto middle = origin + QPointF(image.pixels.width(), image.pixels.height()) / 2;
        EXPECT_LE((middle - QRectF(bar.button.geometry()).center() * scale).manhattanLength(), 1);
        const auto expected = checkers(scale, isTemplate ? 0xffff8000 : 0xff0000ff, barColor);
        const QRect where(origin.toPoint(), expected.size());
        EXPECT_EQ(picture.copy(where).convertToFormat(expected.format()), expected)
            << "template " << isTemplate << ", scale " << scale;
    }
}

TEST(StatusBarButtonTest, RepaintsOnlyForWhatShows)
{
    Bar bar;
    auto& button = bar.button;
    const auto scale = bar.devicePixelRatioF();
    const auto set = [&](double imageScale) { button.setImage({checkers(imageScale), true}); };
    const std::pair<bool, std::function<void()>> cases[]{
        {true, [&] { set(scale); }},
        {false, [&] { set(scale); }},
        {false, [&] { button.setTintColor(button.tintColor()); }},
        {true, [&] { button.highlight(true); }},
        {true, [&] { button.setTintColor(Qt::white); }},
        {true, [&] { set(scale * 2); }},
        {true, [&] { button.highlight(false); }},
    };
    int turn = 0;
    for (const auto& [shows, change] : cases) {
        SCOPED_TRACE(turn++);
        const auto before = bar.grab().toImage();
        change();
        EXPECT_EQ(bar.repaints(), shows);
        EXPECT_EQ(bar.grab().toImage() != before, shows);
    }
}

TEST(StatusBarButtonTest, IsPressedThroughItsChildrenAndByAssistiveTools)
{
    Bar bar;
    QWidget child(&bar.button);
    int presses = 0;
    QObject::connect(&bar.button, &StatusBarButton::mouseDown, [&] { ++presses; });
    for (QWidget* const target : {static_cast<QWidget*>(&bar.button), &child}) {
        for (const auto which : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            QMouseEvent event(QEvent::MouseButtonPress, QPointF(1, 1), target->mapToGlobal(QPointF(1, 1)),
                which, which, Qt::NoModifier);
            QApplication::sendEvent(target, &event);
        }
    }
    EXPECT_EQ(presses, 4);

    auto* accessible = QAccessible::queryAccessibleInterface(&bar.button);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(waitFor([&] { return presses == 5; }));
}
