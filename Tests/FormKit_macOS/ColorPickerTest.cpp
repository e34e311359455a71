// SPDX-License-Identifier: MIT
#include "ElementFixture.h"
#include "FormKit_macOS/Colors/ColorButton.h"
#include "FormKit_macOS/Colors/ColorName.h"
#include "FormKit_macOS/Elements/FormColorPicker.h"
#include "Support/WaitFor.h"

#include <QLocale>
#include <QWheelEvent>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;
using quor::toolkit::ColorModel;

namespace {

TEST(ColorName, NamesTheNearestColour)
{
    const std::tuple<const char*, QString, QString> cases[] = {{"#F58C6E", u"Red-orange"_s, u"Rotorange"_s},
        {"#FFBB5C", u"Orange"_s, u"Orange"_s}, {"#9DD257", u"Yellow-green"_s, u"Gelbgrün"_s},
        {"#00CA8F", u"Turquoise"_s, u"Türkis"_s}, {"#00BFF9", u"Sky blue"_s, u"Himmelblau"_s},
        {"#4465F9", u"Blue"_s, u"Blau"_s}, {"#9D86F7", u"Violet"_s, u"Violett"_s},
        {"#E80C7A", u"Pink"_s, u"Pink"_s}, {"#FF0010", u"Red"_s, u"Rot"_s},
        {"#FFF000", u"Yellow"_s, u"Gelb"_s}, {"#00A000", u"Green"_s, u"Grün"_s},
        {"#8B4513", u"Brown"_s, u"Braun"_s}, {"#000040", u"Blue, dark"_s, u"Blau, dunkel"_s},
        {"#FFD0D8", u"Red, light"_s, u"Rot, hell"_s}, {"#000000", u"Black"_s, u"Schwarz"_s},
        {"#FFFFFF", u"White"_s, u"Weiß"_s}, {"#808080", u"Grey"_s, u"Grau"_s},
        {"#E0E0E0", u"Grey, light"_s, u"Grau, hell"_s}, {"", u"No colour"_s, u"Keine Farbe"_s}};
    for (const auto& [value, english, german] : cases) {
        QLocale::setDefault(QLocale::English);
        EXPECT_EQ(colorName(QColor(value)), english) << value;
        QLocale::setDefault(QLocale::German);
        EXPECT_EQ(colorName(QColor(value)), german) << value;
    }
    QLocale::setDefault(QLocale::English);
    EXPECT_EQ(colorNameAndValue(QColor("#FFBB5C")), u"Orange (#FFBB5C)"_s);
}

class ColorPickers : public quor::test::FormElements {
protected:
    ColorPickers()
    {
        picker_->setColorModel(ColorModel({0xFF0000, 0x00FF00, 0x0000FF}));
        picker_->setValue(QColor(0, 0, 255));
        picker_->setValueChanged([this](FormElement&) { ++changes_; });
    }

    ColorRow& row() { return picker_->colorRow(); }
    /// The index of the swatch that is on; 3 for the last button, -1 for none, -2 for several.
    int on()
    {
        int found = -1;
        for (int i = 0; i <= int(row().swatches().size()); ++i) {
            const bool isSwatch = i < int(row().swatches().size());
            auto& button = isSwatch ? *row().swatches()[std::size_t(i)] : row().customColorButton();
            if (button.isChecked())
                found = found == -1 ? i : -2;
        }
        return found;
    }
    void key(int key) { QTest::keyClick(&row(), Qt::Key(key)); }
    ColorChooser* chooser() { return window_.findChild<ColorChooser*>(); }

    std::shared_ptr<FormColorPicker> picker_ = add<FormColorPicker>();
    int changes_ = 0;
};

TEST_F(ColorPickers, ShowWhichSwatchIsOn)
{
    EXPECT_EQ(makeElement<FormColorPicker>()->value(), QColor(0xF5, 0x8C, 0x6E));
    EXPECT_EQ(on(), 2);
    const std::tuple<QColor, int> cases[] = {{QColor(255, 0, 0), 0}, {QColor(0, 255, 0, 9), 1},
        {QColor::fromHsv(240, 255, 255), 2}, {QColor(255, 0, 4), 3}, {QColor(), -1}};
    for (const auto& [value, index] : cases) {
        picker_->setValue(value);
        EXPECT_EQ(on(), index) << index;
        EXPECT_EQ(picker_->colorWell().color(), value);
    }
    picker_->setColorModel(ColorModel({0, 0}));
    EXPECT_EQ(on(), -1) << "no colour is not black";
    picker_->setValue(Qt::black);
    EXPECT_EQ(on(), 0);
    picker_->setColorModel(ColorModel({}));
    EXPECT_EQ(on(), 0) << "the last button";
    EXPECT_FALSE(picker_->hasChanges());
    EXPECT_EQ(changes_, 0);
}

TEST_F(ColorPickers, AreOperatedByPointerAndKeyboard)
{
    show();
    ColorButton& green = *row().swatches()[1];
    click(&green, green.rect().center());
    EXPECT_EQ(picker_->value(), QColor(0, 255, 0));
    EXPECT_TRUE(picker_->hasChanges());
    EXPECT_EQ(changes_, 1);
    struct Step {
        int key, on, changes;
    };
    row().setFocus(Qt::TabFocusReason);
    for (const auto& [pressed, index, changes] : {Step{Qt::Key_Right, 2, 2}, Step{Qt::Key_Right, 2, 2},
             Step{Qt::Key_Home, 0, 3}, Step{Qt::Key_Left, 0, 3}, Step{Qt::Key_Down, 0, 3},
             Step{Qt::Key_Space, 0, 4}, Step{Qt::Key_Right, 1, 5}, Step{Qt::Key_End, 1, 5}}) {
        key(pressed);
        EXPECT_EQ(on(), index) << pressed;
        EXPECT_EQ(changes_, changes) << pressed;
    }
    EXPECT_TRUE(row().customColorButton().isCurrent());
    EXPECT_FALSE(chooser()) << "opened by a key that only passes by";
    key(Qt::Key_Space);
    EXPECT_TRUE(chooser());
    window_.setLayoutDirection(Qt::RightToLeft);
    key(Qt::Key_Right);
    EXPECT_EQ(on(), 2);
    EXPECT_GT(row().swatches()[0]->x(), row().swatches()[1]->x());
    for (QWidget* const control :
        {static_cast<QWidget*>(&green), static_cast<QWidget*>(&picker_->colorWell())}) {
        QWheelEvent wheel({5, 5}, control->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &wheel);
        EXPECT_FALSE(wheel.isAccepted());
    }
    EXPECT_EQ(on(), 2);
}

TEST_F(ColorPickers, GoOnInFurtherLinesWhereTheyDoNotFit)
{
    picker_->setColorModel(ColorModel(std::vector<int>(23, 0x00FF00)));
    picker_->setValue(Qt::green);
    show(200);
    const int side = row().customColorButton().width();
    EXPECT_GT(row().height(), 2 * side);
    for (const auto* const swatch : row().swatches())
        EXPECT_TRUE(row().rect().contains(swatch->geometry()));
    EXPECT_GT(row().customColorButton().y(), row().swatches()[0]->y());
    row().setFocus();
    key(Qt::Key_Down);
    EXPECT_TRUE(row().swatches()[std::size_t(row().width() / side)]->isCurrent());
}

TEST_F(ColorPickers, ChooseAnyColourInADialogThatDoesNotBlock)
{
    show();
    click(&picker_->colorWell());
    ASSERT_TRUE(chooser() && chooser()->isVisible());
    EXPECT_FALSE(chooser()->isModal());
    EXPECT_EQ(chooser()->currentColor(), QColor(0, 0, 255));
    const QPointer<ColorChooser> first = chooser();
    click(&picker_->colorWell());
    EXPECT_EQ(window_.findChildren<ColorChooser*>(), QList<ColorChooser*>{first}) << "a second one";
    chooser()->setCurrentColor(QColor(1, 2, 3));
    EXPECT_EQ(changes_, 0);
    chooser()->accept();
    ASSERT_TRUE(waitFor([&] { return changes_ == 1 && !first; }));
    EXPECT_EQ(picker_->value(), QColor(1, 2, 3));
    EXPECT_EQ(on(), 3);
    QTest::keyClick(&picker_->colorWell(), Qt::Key_Return);
    ASSERT_TRUE(chooser());
    chooser()->setCurrentColor(Qt::red);
    QTest::keyClick(chooser(), Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !chooser(); }));
    EXPECT_EQ(picker_->value(), QColor(1, 2, 3));
    EXPECT_EQ(changes_, 1);
}

TEST_F(ColorPickers, CloseTheDialogWithWhatItIsFor)
{
    auto window = std::make_unique<QWidget>();
    auto* const layout = new QVBoxLayout(window.get());
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"disabled", [&] { picker_->setEnabled(false); }},
        {"form disabled", [&] { window->setEnabled(false); }},
        {"hidden", [&] { picker_->setHidden(true); }},
        {"element ended", [&] { form_->removeElement(*picker_), picker_.reset(); }},
        {"form ended", [&] { form_.reset(), picker_.reset(); }},
        {"view deleted", [&] { delete picker_->view(); }},
        {"window deleted in the handler",
            [&] {
                picker_->setValueChanged([&](FormElement&) { window.reset(); });
                window->findChild<ColorChooser*>()->accept();
            }},
    };
    window->show();
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        form_ = std::make_shared<Form>(u"Form"_s, std::make_shared<FormViewFactory>(), 300, 0.6);
        picker_ = add<FormColorPicker>();
        layout->addWidget(picker_->view());
        window->setEnabled(true);
        QCoreApplication::processEvents(); // shows the new view
        picker_->colorWell().click();
        const QPointer<ColorChooser> open = picker_->colorWell().chooser();
        ASSERT_TRUE(open && open->isVisible());
        end();
        EXPECT_TRUE(waitFor([&] { return !open; }));
    }
    EXPECT_FALSE(window);
    picker_->setValue(Qt::red); // without its view
    picker_->setColorModel(ColorModel({1}));
    picker_->setEnabled(false);
    EXPECT_EQ(picker_->value(), QColor(Qt::red));
}

TEST_F(ColorPickers, MayGetOtherSwatchesOrEndInTheirHandlers)
{
    show();
    picker_->setValueChanged([&](FormElement&) {
        picker_->setColorModel(ColorModel({1, 2, 3, 4}));
        form_->removeElement(*std::exchange(picker_, nullptr));
    });
    const QPointer<ColorButton> swatch = row().swatches()[0];
    click(swatch, swatch->rect().center());
    EXPECT_FALSE(picker_);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(swatch);
}

TEST_F(ColorPickers, TellScreenReadersTheNamesAndWhatIsOn)
{
    show();
    auto* const red = QAccessible::queryAccessibleInterface(row().swatches()[0]);
    EXPECT_EQ(red->role(), QAccessible::RadioButton);
    EXPECT_EQ(red->text(QAccessible::Name), u"Red"_s);
    EXPECT_FALSE(red->state().checked);
    red->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(red->state().checked);
    EXPECT_EQ(changes_, 1);
    EXPECT_TRUE(row().swatches()[0]->toolTip().contains(u"Red (#FF0000)"_s));
    auto* const well = QAccessible::queryAccessibleInterface(&picker_->colorWell());
    EXPECT_EQ(well->text(QAccessible::Name), u"Colour"_s);
    EXPECT_EQ(well->text(QAccessible::Description), u"Red"_s);
    picker_->colorWell().setAccessibleName(u"Project colour:"_s);
    EXPECT_EQ(well->text(QAccessible::Name), u"Project colour:"_s);
}

} // namespace
