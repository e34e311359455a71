// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/SyncSpinner.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/FlippedEffectView.h"

#include <gtest/gtest.h>

using namespace quor::toolkit;
using quor::test::waitFor;

namespace {

TEST(SyncSpinner, TurnsEitherWayWhileItIsSeenUntilStopped)
{
    SyncSpinner spinner(SpinnerType::normal);
    EXPECT_GT(spinner.width(), SyncSpinner(SpinnerType::small).width());
    EXPECT_FALSE(spinner.imageView().size().isEmpty());
    EXPECT_NE(spinner.accessibleName(), QStringLiteral("SyncSpinner")) << "a word, not its key";
    spinner.startSpinning(0.2);
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(waitFor([&] { return time.elapsed() > 60; }));
    EXPECT_EQ(spinner.imageView().angle(), 0) << "turned though nobody saw it";
    spinner.show();
    const auto turnsBelow
        = [&](double angle) { return waitFor([&, angle] { return spinner.imageView().angle() < angle; }); };
    EXPECT_TRUE(turnsBelow(-3));
    spinner.startSpinningReverse(0.1); // is ignored: it turns already
    EXPECT_TRUE(turnsBelow(-5));
    spinner.stop();
    EXPECT_EQ(spinner.imageView().angle(), 0) << "upright, also for what starts anew";
    spinner.startSpinningReverse(0.2);
    EXPECT_TRUE(waitFor([&] { return spinner.imageView().angle() > 3; }));
}

TEST(FlippedEffectView, IsOpaqueUnlessItsWindowShinesThrough)
{
    for (const bool shines : {false, true}) {
        FlippedEffectView view;
        view.setAttribute(Qt::WA_TranslucentBackground, shines);
        view.resize(4, 4);
        QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        view.render(&image, {}, {}, {});
        EXPECT_EQ(qAlpha(image.pixel(2, 2)) < 255, shines);
        EXPECT_GT(qAlpha(image.pixel(2, 2)), 200);
    }
}

} // namespace
