// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/SyncSpinner.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/FlippedClipView.h"
#include "ToolKit_macOS/FlippedEffectView.h"
#include "ToolKit_macOS/FlippedView.h"

#include <QScrollArea>

#include <gtest/gtest.h>

using namespace quor::toolkit;
using quor::test::waitFor;

namespace {

TEST(SyncSpinner, TurnsEitherWayWhileItIsSeenUntilStopped)
{
    SyncSpinner spinner(SpinnerType::normal);
    EXPECT_GT(spinner.width(), SyncSpinner(SpinnerType::small).width());
    EXPECT_FALSE(spinner.imageView().size().isEmpty());
    EXPECT_EQ(spinner.imageView().parentWidget(), &spinner.rotationView());
    EXPECT_NE(spinner.accessibleName(), QStringLiteral("SyncSpinner")) << "a word, not its key";
    spinner.startSpinning(0.2);
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(waitFor([&] { return time.elapsed() > 60; }));
    EXPECT_EQ(spinner.imageView().angle(), 0) << "turned while it was hidden";
    spinner.show();
    const auto turnsBelow
        = [&](double angle) { return waitFor([&, angle] { return spinner.imageView().angle() < angle; }); };
    EXPECT_TRUE(turnsBelow(-3));
    spinner.startSpinningReverse(0.1); // ignored: it turns already
    EXPECT_TRUE(turnsBelow(-5));
    spinner.stop();
    EXPECT_EQ(spinner.imageView().angle(), 0) << "upright for the next start";
    spinner.startSpinningReverse(0.2);
    EXPECT_TRUE(waitFor([&] { return spinner.imageView().angle() > 3; }));
}

TEST(FlippedEffectView, IsOpaqueUnlessItsWindowIsTranslucent)
{
    for (const bool isTranslucent : {false, true}) {
        FlippedEffectView view;
        view.setAttribute(Qt::WA_TranslucentBackground, isTranslucent);
        view.resize(4, 4);
        QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        view.render(&image, {}, {}, {});
        EXPECT_EQ(qAlpha(image.pixel(2, 2)) < 255, isTranslucent);
        EXPECT_GT(qAlpha(image.pixel(2, 2)), 200);
        image.fill(Qt::white); // what the window has painted
        view.render(&image, {}, {}, {});
        EXPECT_EQ(qAlpha(image.pixel(2, 2)), 255) << "it made its window translucent";
    }
}

TEST(FlippedClipView, ShowsAShortContentAtItsTop)
{
    QScrollArea area;
    area.setFrameShape(QFrame::NoFrame);
    area.setViewport(new FlippedClipView);
    auto* content = new FlippedView;
    content->resize(50, 20);
    area.setWidget(content);
    area.resize(100, 100);
    area.show();
    EXPECT_EQ(content->geometry(), QRect(0, 0, 50, 20));
}

} // namespace
