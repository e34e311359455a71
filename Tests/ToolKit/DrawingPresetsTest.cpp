// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/CoreImageFactory.h"
#include "ToolKit/Drawing/ShadowPresets.h"
#include "ToolKit/Drawing/Text/ComposedLabel.h"
#include "ToolKit/Drawing/Text/CustomFontSizeModifier.h"

#include <QDir>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::AttributedString;

namespace {

TEST(CoreImageFactory, TheKitsImagesAreThere)
{
    using Name = CoreImageFactory::ImageName;
    for (const bool isTemplate : {false, true}) {
        for (const auto& [name, side] : {std::pair(Name::syncSpinner, 32), {Name::syncSpinnerSmall, 16}}) {
            const auto image = CoreImageFactory::image(name, isTemplate, 2);
            EXPECT_EQ(image.pixels.deviceIndependentSize(), QSizeF(side, side));
            EXPECT_GT(image.pixels.pixelColor(2 * side * 27 / 32, side).alpha(), 200) << "the arrow's arc";
        }
    }
}

TEST(ComposedLabel, PutsTintedIconsBeforeOrAfterTheText)
{
    const QTemporaryDir folder;
    QImage wide(40, 20, QImage::Format_ARGB32);
    wide.fill(Qt::blue);
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"Images"_s) && wide.save(folder.filePath(u"Images/wide.png"_s)));
    const QFont font = QGuiApplication::font();
    const auto label = [&](bool imagesFirst) {
        return composedLabel(AttributedString(u"Text"_s), {u"wide"_s, u"missing"_s, u"wide"_s}, Qt::red, font,
            imagesFirst, quor::platform::Bundle(folder.path()));
    };

    const auto first = label(true);
    EXPECT_EQ(first.string(), u"\uFFFC \uFFFC Text"_s);
    EXPECT_EQ(label(false).string(), u"Text \uFFFC \uFFFC"_s);
    const auto icon = first.attachment(0);
    ASSERT_TRUE(icon.has_value());
    const double cap = QFontMetricsF(font).capHeight();
    EXPECT_EQ(icon->bounds.size(), QSizeF(2, 1) * std::round(cap * 1.4));
    EXPECT_NEAR(icon->bounds.center().y(), cap / 2, 1e-9);
    EXPECT_EQ(icon->image.pixelColor(icon->image.rect().center()), QColor(Qt::red));
}

TEST(ShadowPresets, FallOnWhatIsAroundTheWidget)
{
    const auto darkness = [](void (*apply)(QWidget&), int x, int y) {
        QWidget window;
        window.resize(100, 100);
        window.setStyleSheet(u"background: white"_s);
        QWidget box(&window);
        box.setGeometry(30, 30, 40, 40);
        apply(box);
        return 255 - window.grab().toImage().pixelColor(x, y).lightness();
    };
    EXPECT_GT(darkness(applyLightShadow, 50, 71), 12);
    EXPECT_LT(darkness(applyLightShadow, 50, 80), 4);
    EXPECT_NEAR(darkness(applyLightShadow, 50, 71), darkness(applyLightShadow, 50, 28), 3);
    EXPECT_LT(darkness(applyStrongShadow, 50, 27), darkness(applyStrongShadow, 50, 72) / 2)
        << "it falls down and to the right";
    EXPECT_GT(darkness(applyStrongShadow, 72, 50), darkness(applyStrongShadow, 28, 50));
}

TEST(CustomFontSizeModifier, SizesFollowTheUsersFont)
{
    QWidget content;
    CustomFontSizeModifier{TextStyle::title2, QFont::Bold, 1.5}.apply(content);
    const double body = QFontInfo(QGuiApplication::font()).pointSizeF();
    EXPECT_NEAR(content.font().pointSizeF(), body * 17 / 13 * 1.5, 0.01);
    EXPECT_EQ(content.font().weight(), QFont::Bold);
}

} // namespace
