// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/RoundedButton/RoundedButton.h"
#include "Support/WaitFor.h"

#include <QAccessible>
#include <QGraphicsEffect>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor::toolkit;
using quor::platform::AttributedString;
using quor::test::waitFor;

namespace {

using Reports = QList<std::pair<ClickType, int>>;

QImage icon(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    return image;
}

class RoundedButtonTest : public testing::Test {
protected:
    RoundedButtonTest()
    {
        button->setClickedHandler([this](RoundedButton&, ClickType type, int tag) {
            reports.append({type, tag});
        });
        button->setTitle(u"Start"_s);
        button->setGeometry(20, 20, 200, 30);
        window.resize(300, 200);
        window.show();
    }

    void enter(bool isInside)
    {
        QEnterEvent enterEvent({5, 5}, {5, 5}, {5, 5});
        QEvent leaveEvent(QEvent::Leave);
        QCoreApplication::sendEvent(button, isInside ? &enterEvent : &leaveEvent);
    }
    [[nodiscard]] QImage drawn() const
    {
        QImage image(button->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        button->render(&image, {}, {}, {});
        return image;
    }
    [[nodiscard]] QColor colorAt(QPoint point) const { return drawn().pixelColor(point); }
    [[nodiscard]] int alphaAt(QPoint point) const { return colorAt(point).alpha(); }
    // The strongest colour of the title, on a button without a fill.
    [[nodiscard]] int textAlpha() const
    {
        const QImage image = drawn();
        int strongest = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                strongest = std::max(strongest, qAlpha(image.pixel(x, y)));
        }
        return strongest;
    }

    QWidget window;
    RoundedButton* button = new RoundedButton(&window);
    Reports reports;
};

} // namespace

TEST_F(RoundedButtonTest, IsAsLargeAsItsContent)
{
    const QSizeF text = button->intrinsicContentSize() - QSizeF(48, 16);
    EXPECT_GT(text.width(), 20);
    button->setLeftImage(icon(16));
    EXPECT_EQ(button->intrinsicContentSize(), text + QSizeF(48 + 16 + 5, 16));
    button->setContentSpacing(7);
    button->setRightImage(icon(60)); // higher than the text, which alone counts
    EXPECT_EQ(button->intrinsicContentSize(), text + QSizeF(48 + 16 + 7 + 60 + 7, 16));
    button->setLeftImage({});
    button->setRightImage({});
    button->setTitleInsets({1, 2, 3, 4});
    button->sizeToFit();
    EXPECT_EQ(button->geometry(), QRect({20, 20}, (text + QSizeF(4, 6)).toSize()));
    button->setSubtitle(u"since nine o'clock this morning"_s);
    EXPECT_GT(button->intrinsicContentSize().width(), text.width() + 50);
    EXPECT_EQ(button->intrinsicContentSize().height(), text.height() + 6);
    EXPECT_LT(button->minimumSizeHint().width(), 30);

    const std::tuple<RoundedButtonType, QMarginsF, int, bool> types[] = {
        {RoundedButtonType::tiny, {4, 0, 4, 0}, 11, false},
        {RoundedButtonType::small, {8, 2, 8, 2}, 11, false},
        {RoundedButtonType::normal, {24, 8, 24, 8}, 12, false},
        {RoundedButtonType::large, {48, 18, 48, 18}, 17, true},
    };
    for (const auto& [type, insets, size, isBold] : types) {
        button->setType(type);
        EXPECT_EQ(button->titleInsets(), insets);
        EXPECT_EQ(QFontInfo(button->menu().font()).pixelSize(), size);
        EXPECT_EQ(QFontInfo(button->font()).pixelSize(), size);
        EXPECT_EQ(button->font().bold(), isBold);
    }
}

TEST_F(RoundedButtonTest, KeepsTheWidthOfItsWidestTitleWhileAsked)
{
    const double narrow = button->intrinsicContentSize().width();
    button->setMaintainMinWidth(true);
    button->setTitle(u"Start the task again"_s);
    const double wide = button->intrinsicContentSize().width();
    EXPECT_GT(wide, narrow);
    button->setTitle(u"Start"_s);
    EXPECT_EQ(button->intrinsicContentSize().width(), wide);
    EXPECT_EQ(button->currentMinTitleWidth(), wide - 48);
    button->resetMinTitleWidth();
    EXPECT_EQ(button->intrinsicContentSize().width(), narrow);
    button->setMaintainMinWidth(false);
    (void)button->sizeHint();
    EXPECT_EQ(button->currentMinTitleWidth(), 0);
}

TEST_F(RoundedButtonTest, ReportsTheZoneOfAClick)
{
    struct Case {
        bool hasLeft, hasRight;
        int x;
        ClickType expected;
    };
    // The icons are at 24 to 40 and at 160 to 176.
    const Case cases[] = {
        {true, true, 5, ClickType::left},
        {true, true, 47, ClickType::left},
        {true, true, 48, ClickType::middle},
        {true, true, 152, ClickType::middle},
        {true, true, 153, ClickType::right},
        {true, true, 199, ClickType::right},
        {false, true, 30, ClickType::middle},
        {true, false, 170, ClickType::middle},
    };
    for (const bool isMirrored : {false, true}) {
        button->setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        for (const auto& [hasLeft, hasRight, x, expected] : cases) {
            button->setLeftImage(hasLeft ? icon(16) : QImage());
            button->setRightImage(hasRight ? icon(16) : QImage());
            reports.clear();
            const int shownX = isMirrored ? 200 - x : x;
            QTest::mouseClick(button, Qt::LeftButton, {}, {shownX, 15});
            EXPECT_EQ(reports, Reports({{expected, -1}})) << shownX;
        }
    }
    reports.clear();
    QTest::mousePress(button, Qt::LeftButton, {}, {100, 15});
    QTest::mouseRelease(button, Qt::LeftButton, {}, {100, 100});
    QTest::mouseClick(button, Qt::RightButton, {}, {100, 15});
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton, {}, {100, 15});
    EXPECT_TRUE(reports.isEmpty());
    button->setEnabled(true);
    button->setFocus();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(button, key);
    EXPECT_EQ(reports, Reports(3, {ClickType::middle, -1}));
}

TEST_F(RoundedButtonTest, OpensItsMenuAndTakesTheTitleOfTheEntry)
{
    EXPECT_TRUE(button->rightImage().isNull());
    button->addMenuItem(u"Research & writing"_s, 7);
    EXPECT_FALSE(button->rightImage().isNull()) << "an arrow";
    button->addMenuSeparator();
    button->addMenuItem(u"Design"_s, 9);
    const auto click = [&] { QTest::mouseClick(button, Qt::LeftButton, {}, {100, 15}); };
    const auto isClosed = [&] { return !button->menu().isVisible(); };

    click();
    EXPECT_EQ(button->menu().pos(), button->mapToGlobal(QPoint(0, 34)));
    EXPECT_TRUE(reports.isEmpty()) << "the menu is still open";
    enter(true);
    QTest::keyClick(&button->menu(), Qt::Key_Down);
    QTest::keyClick(&button->menu(), Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return reports.size() == 2; }));
    EXPECT_EQ(reports, Reports({{ClickType::middle, 7}, {ClickType::middle, -1}}));
    EXPECT_EQ(button->title(), u"Research & writing"_s);
    EXPECT_FALSE(button->isMouseOver());

    reports.clear();
    click();
    QTest::keyClick(&button->menu(), Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return reports == Reports({{ClickType::middle, -1}}); }));

    reports.clear();
    QTest::keyClick(button, Qt::Key_Down, Qt::AltModifier);
    EXPECT_FALSE(isClosed());
    button->menu().actions().constLast()->trigger();
    button->menu().close();
    button->setFullWidthMenuAction(true);
    QTest::mouseClick(button, Qt::LeftButton, {}, {195, 15}); // on the arrow
    EXPECT_FALSE(isClosed());
    button->menu().close();
    QCoreApplication::processEvents();
    EXPECT_EQ(reports, Reports({{ClickType::middle, 9}}));

    button->selectMenuItem(7);
    button->selectMenuItem(8);
    EXPECT_EQ(button->title(), u"Research & writing"_s);
    button->setRightImage(icon(3));
    button->addMenuItem(u"Meeting"_s, 1);
    EXPECT_EQ(button->rightImage().width(), 3);
    button->removeAllMenuItems();
    EXPECT_TRUE(button->menu().isEmpty());
    EXPECT_TRUE(button->rightImage().isNull());
    EXPECT_FALSE(button->openMenu());

    // A handler may end the button, with its menu open.
    button->setFullWidthMenuAction(false);
    button->addMenuItem(u"End"_s, 1);
    button->setClickedHandler([](RoundedButton& clicked, ClickType, int) { delete &clicked; });
    const QPointer<RoundedButton> ended(button);
    click();
    button->menu().actions().constFirst()->trigger();
    EXPECT_FALSE(ended);
}

TEST_F(RoundedButtonTest, FillsItsShapeAsItsBezelSays)
{
    const QPoint inside(100, 3), corner(1, 1);
    button->setButtonColor(Qt::red);
    EXPECT_EQ(colorAt(inside), QColor(Qt::red));
    EXPECT_EQ(alphaAt(corner), 0);
    button->setCornerRadius(0);
    EXPECT_EQ(colorAt(corner), QColor(Qt::red));
    button->setDown(true);
    EXPECT_EQ(alphaAt(inside), 179);
    button->setDown(false);
    button->setEnabled(false);
    EXPECT_EQ(colorAt(inside), QColor(0x84, 0x84, 0x84));
    button->setEnabled(true);

    const std::tuple<BezelType, bool, bool, int> cases[] = {
        {BezelType::filled, false, false, 255},
        {BezelType::mouseOverFill, false, false, 0},
        {BezelType::mouseOverFill, true, false, 255},
        {BezelType::mouseOverFill, false, true, 255},
        {BezelType::none, true, true, 0},
    };
    for (const auto& [bezel, isMouseOver, isOn, alpha] : cases) {
        button->setBezel(bezel);
        enter(isMouseOver);
        button->setOn(isOn);
        EXPECT_EQ(alphaAt(inside), alpha) << int(bezel) << isMouseOver << isOn;
    }
    button->setHasShadow(true);
    EXPECT_NE(button->graphicsEffect(), nullptr);
    button->setHasShadow(false);
    EXPECT_EQ(button->graphicsEffect(), nullptr);
}

TEST_F(RoundedButtonTest, ColorsTitleAndIconsByState)
{
    button->setBezel(BezelType::none);
    button->setTitleColor(Qt::green);
    button->setFilledTitleColor(Qt::blue);
    button->setLeftImage(icon(16));
    const QPoint onIcon(30, 15);
    EXPECT_EQ(colorAt(onIcon), QColor(Qt::green));
    button->setOn(true);
    EXPECT_EQ(colorAt(onIcon), QColor(Qt::blue));
    button->setOn(false);
    button->setLeftImage({});

    const QString block(QChar(0x2588)); // whose pixels have the full alpha
    struct Case {
        bool isSubtitle, isEnabled, isDown;
        int alpha;
    };
    const Case cases[] = {
        {false, true, false, 255},
        {false, false, false, 128},
        {false, false, true, 179},
        {true, true, false, 204},
        {true, false, false, 204},
        {true, true, true, 179},
    };
    for (const auto& [isSubtitle, isEnabled, isDown, alpha] : cases) {
        button->setTitle(isSubtitle ? QString() : block);
        button->setSubtitle(isSubtitle ? block : QString());
        button->setEnabled(isEnabled);
        button->setDown(isDown);
        EXPECT_NEAR(textAlpha(), alpha, 2) << isSubtitle << isEnabled << isDown;
    }
}

TEST_F(RoundedButtonTest, TellsScreenReadersWhatItShows)
{
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(button);
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    button->setParseMarkdown(true);
    button->setTitle(u"**Save** & close"_s);
    button->setSubtitle(u"as *draft*"_s);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Save & close"_s);
    EXPECT_EQ(spoken->text(QAccessible::Description), u"as *draft*"_s);
    EXPECT_TRUE(button->shortcut().isEmpty()) << "'&' is no mnemonic";
    EXPECT_FALSE(spoken->state().checked);
    EXPECT_FALSE(spoken->state().hasPopup);
    button->setOn(true);
    button->addMenuItem(u"Later"_s, 1);
    EXPECT_TRUE(spoken->state().checked);
    EXPECT_TRUE(spoken->state().hasPopup);
    button->setAttributedTitle(AttributedString(u"Own"_s));
    EXPECT_FALSE(button->hasPlainTitle());
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Own"_s);
    auto* const actions = spoken->actionInterface();
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(button->menu().isVisible());
    button->menu().close();
    button->setEnabled(false);
    EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
}
