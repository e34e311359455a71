// SPDX-License-Identifier: MIT
#include "Platform/Views/StatusBarButton.h"

#include "Support/WaitFor.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

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

TEST(StatusBarButtonTest, DrawsItsForegroundOverTheImageInItsOwnColours)
{
    Bar bar;
    const auto scale = bar.devicePixelRatioF();
    bar.button.setImage({checkers(scale), true});
    const auto before = bar.grab().toImage();
    bar.button.setForeground([](QPainter& painter, QSizeF imageSize) {
        painter.fillRect(QRectF({imageSize.width() - 2, imageSize.height() - 2}, QSizeF(2, 2)), Qt::red);
    });
    EXPECT_TRUE(bar.repaints());
    const auto corner = QPointF(bar.button.pos()) + bar.button.imageOrigin() + QPointF(39, 15);
    EXPECT_EQ(bar.grab().toImage().pixelColor((corner * scale).toPoint()), QColor(Qt::red));
    bar.button.setForeground({});
    EXPECT_EQ(bar.grab().toImage(), before);
}

TEST(StatusBarButtonTest, IsClickedByAssistiveToolsButNotByThePointer)
{
    Bar bar;
    int clicks = 0;
    QObject::connect(&bar.button, &StatusBarButton::clicked, [&] { ++clicks; });
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, QPointF(1, 1), bar.button.mapToGlobal(QPointF(1, 1)), Qt::LeftButton,
            Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&bar.button, &event);
    }
    EXPECT_EQ(clicks, 0);
    auto* accessible = QAccessible::queryAccessibleInterface(&bar.button);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(waitFor([&] { return clicks == 1; }));
}
