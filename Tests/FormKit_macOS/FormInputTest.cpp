// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Elements/FormDistanceInput.h"
#include "FormKit_macOS/Elements/FormDualInput.h"
#include "FormKit_macOS/Elements/FormDurationInput.h"
#include "FormKit_macOS/Elements/FormMoneyInput.h"
#include "FormKit_macOS/Elements/FormNumberInput.h"
#include "FormKit_macOS/Elements/FormTextInput.h"
#include "InputFixture.h"
#include "Platform/Text/NumberFormatter.h"
#include "Support/WaitFor.h"

#include <QElapsedTimer>
#include <QScrollArea>
#include <QToolButton>

#include <cmath>
#include <limits>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::FormInputs;
using quor::test::waitFor;

namespace {

TEST_F(FormInputs, ABurstOfKeysIsOneChange)
{
    const auto input = show(form_->viewFactory()->textInput());
    input->setValue(u"from code"_s);
    EXPECT_FALSE(input->hasChanges());
    QElapsedTimer time;
    for (const char key : {'a', 'b', 'c'}) {
        time.start();
        QTest::keyClick(input->view(), key);
        EXPECT_TRUE(input->hasChanges());
    }
    EXPECT_EQ(changes_, 0);
    form_->resetChanges();
    EXPECT_TRUE(waitFor([&] { return changes_ > 0; }));
    EXPECT_GE(time.elapsed(), 295);
    EXPECT_EQ(changes_, 1);
    EXPECT_FALSE(input->hasChanges());
    EXPECT_EQ(input->value(), u"from codeabc"_s);
}

TEST_F(FormInputs, EachTypeHasItsFieldAndMailSharesThatOfText)
{
    const auto input = form_->viewFactory()->textInput();
    input->setPlaceholder(u"Name"_s);
    input->setValue(u"text"_s);
    QWidget* const text = input->view();
    for (const auto type : {TextInputType::secure, TextInputType::search, TextInputType::readonly}) {
        input->setEnabled(type == TextInputType::search);
        input->setType(type);
        EXPECT_EQ(input->value(), QString());
        EXPECT_NE(input->view(), text);
        EXPECT_EQ(field(*input).placeholderText(), u"Name"_s);
        EXPECT_EQ(input->view()->isEnabled(), type == TextInputType::search);
        EXPECT_EQ(field(*input).isReadOnly(), type == TextInputType::readonly);
    }
    input->setType(TextInputType::email);
    EXPECT_EQ(input->view(), text);
    EXPECT_EQ(input->value(), u"text"_s);
}

TEST_F(FormInputs, ASecureTextLeavesNoTrace)
{
    const auto input = form_->viewFactory()->textInput();
    input->setType(TextInputType::secure);
    show(input);
    QApplication::clipboard()->setText(u"before"_s);
    QTest::keyClicks(input->view(), u"secret"_s);
    for (const auto key : {QKeySequence::SelectAll, QKeySequence::Copy, QKeySequence::Cut})
        QTest::keySequence(input->view(), key);
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_s);
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(input->view(), Qt::Key_Backspace);
    for (const auto key : {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Undo}) {
        QTest::keySequence(input->view(), key);
        EXPECT_EQ(input->value(), QString());
    }
}

TEST_F(FormInputs, TheClearButtonOfASearchIsAChange)
{
    const auto input = form_->viewFactory()->textInput();
    input->setType(TextInputType::search);
    input->setValue(u"word"_s);
    show(input);
    QTest::mouseClick(input->view()->findChild<QToolButton*>(), Qt::LeftButton);
    EXPECT_EQ(input->value(), QString());
    EXPECT_TRUE(input->hasChanges());
}

TEST_F(FormInputs, ReadonlyTextsCanBeSelectedAndCopiedButNotChanged)
{
    const auto input = form_->viewFactory()->textInput();
    input->setType(TextInputType::readonly);
    input->setValue(u"a value"_s);
    show(input);
    QTest::keyClicks(input->view(), u"x"_s);
    QTest::keySequence(input->view(), QKeySequence::SelectAll);
    QTest::keySequence(input->view(), QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), u"a value"_s);
    EXPECT_EQ(input->value(), u"a value"_s);
    EXPECT_FALSE(input->hasChanges());
}

TEST_F(FormInputs, ReturnIsToldOnceAndNotForTheKeypad)
{
    auto input = show(form_->viewFactory()->textInput());
    int presses = 0;
    input->setEnterPressed([&](FormElementTextInput&) { ++presses; });
    QTest::keyClick(input->view(), Qt::Key_Return);
    QTest::keyClick(input->view(), Qt::Key_Enter, Qt::KeypadModifier);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QApplication::sendEvent(input->view(), &repeated);
    EXPECT_EQ(presses, 1);
    input->endEditing();
    EXPECT_FALSE(input->view()->hasFocus());
    input->setEnterPressed([&](FormElementTextInput& element) {
        form_->removeElement(*form_->elements().front());
        EXPECT_EQ(&element, input.get());
        input.reset();
    });
    QTest::keyClick(input->view(), Qt::Key_Return);
    EXPECT_EQ(input, nullptr);
}

TEST_F(FormInputs, PastedTextsStayInOneLineAndLongOnesWhole)
{
    const auto input = show(form_->viewFactory()->textInput());
    for (const auto& [given, expected] : {std::pair(u"a\r\nb\nc"_s, u"a b c"_s),
             {u"\u2028a\u2029"_s, u" a "_s}, {QString(100'000, u'x'), QString(100'000, u'x')}}) {
        input->setValue({});
        paste(*input->view(), given);
        EXPECT_EQ(input->value(), expected);
        input->setValue(given);
        EXPECT_EQ(input->value(), given) << "from code";
    }
    input->setValue(u"ac"_s);
    field(*input).setCursorPosition(1);
    paste(*input->view(), u"b\r\nb"_s);
    QTest::keyClick(input->view(), 'x');
    EXPECT_EQ(input->value(), u"ab bxc"_s);
}

TEST_F(FormInputs, OpenCompositionsAreNoValueYet)
{
    const auto input = show(form_->viewFactory()->textInput());
    const std::function<void()> interruptions[]
        = {[&] { render(); }, [&] { input->setEnabled(false); }, [&] { input->setValue(u"set"_s); },
            [&] {
                form_->removeElement(*input);
                render();
            }};
    for (const auto& interrupt : interruptions) {
        input->setEnabled(true);
        input->setValue({});
        input->view()->setFocus();
        compose(*input->view(), u"ni"_s);
        interrupt();
        EXPECT_EQ(input->value(), &interrupt == &interruptions[2] ? u"set"_s : QString());
        compose(*input->view(), {}, u"你"_s); // of an input method that has not noticed
        EXPECT_EQ(input->value().count(u'你'), 1);
    }
}

TEST_F(FormInputs, NumbersAreReadAndShownAsTheirFormattersDo)
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    const auto number = form_->viewFactory()->numberInput();
    const auto money = form_->viewFactory()->moneyInput();
    const auto distance = form_->viewFactory()->distanceInput();
    for (const auto& input : std::initializer_list<std::shared_ptr<FormElement>>{number, money, distance})
        show(input);
    number->setValue(5);
    EXPECT_EQ(field(*number).text(), u"0"_s) << "without a formatter";
    EXPECT_EQ(number->value(), 0);
    number->setFormatter(std::make_shared<quor::platform::NumberFormatter>());
    EXPECT_EQ(field(*money).text(), u"0,00\u00a0€"_s);
    EXPECT_EQ(field(*distance).text(), u"0 km"_s);

    struct Case {
        FormElement& element;
        std::function<double()> value;
        QString typed;
        double read;
        QString shown;
        int changes;
    };
    const auto ofNumber = [&] { return number->value(); };
    const auto ofMoney = [&] { return money->value(); };
    const auto ofDistance = [&] { return distance->value(); };
    const QString much(100'000, u'7');
    for (const auto& [element, value, typed, read, shown, changes] :
        std::initializer_list<Case>{{*number, ofNumber, u" 1234,5 "_s, 1234.5, u"1.234,5"_s, 1},
            {*number, ofNumber, u"1,23456"_s, 1.23456, u"1,235"_s, 2},
            {*number, ofNumber, u"１２"_s, 12, u"12"_s, 1}, {*number, ofNumber, u"-٣"_s, -3, u"-3"_s, 1},
            {*number, ofNumber, u" "_s, 0, u"0"_s, 1}, {*number, ofNumber, u"1 x"_s, 0, u"0"_s, 1},
            {*number, ofNumber, much, 0, u"0"_s, 1}, {*number, ofNumber, u"5\r\n"_s, 5, u"5"_s, 1},
            {*money, ofMoney, u"EUR 12"_s, 12, u"12,00\u00a0€"_s, 1},
            {*money, ofMoney, u"abc"_s, 0, u"0,00\u00a0€"_s, 1},
            {*money, ofMoney, u"1,005"_s, 1.005, u"1,00\u00a0€"_s, 2},
            {*money, ofMoney, much, 0, u"0,00\u00a0€"_s, 1},
            {*distance, ofDistance, u"2 miles"_s, 3218.688, u"3,22 km"_s, 2},
            {*distance, ofDistance, u"12"_s, 12000, u"12 km"_s, 1},
            {*distance, ofDistance, u"far"_s, -1, u"0 km"_s, 2}}) {
        element.view()->setFocus();
        QTest::keySequence(element.view(), QKeySequence::SelectAll);
        changes_ = 0;
        paste(*element.view(), typed);
        EXPECT_EQ(value(), read) << qPrintable(typed.left(20));
        element.view()->clearFocus();
        EXPECT_EQ(field(element).text(), shown);
        EXPECT_EQ(changes_, changes) << qPrintable(typed.left(20));
    }
    for (const double odd : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        number->setValue(odd);
        money->setValue(odd);
        distance->setValue(odd);
        EXPECT_EQ(number->value() + money->value() + distance->value(), 0);
    }
    constexpr double largest = std::numeric_limits<double>::max();
    number->setValue(largest);
    money->setValue(largest);
    EXPECT_EQ(number->value(), largest);
    EXPECT_EQ(money->value(), largest);
    money->setValue(1234.5);
    money->setCurrencyCode(u"JPY"_s);
    EXPECT_EQ(field(*money).text(), u"1.234\u00a0¥"_s);
    money->setCurrencyCode({});
    EXPECT_EQ(field(*money).text(), u"1.234"_s);
    distance->setValue(-5000);
    distance->view()->setFocus();
    distance->view()->clearFocus();
    EXPECT_EQ(field(*distance).text(), u"-5 km"_s) << "only left";
    QLocale::setDefault(QLocale::c());
}

TEST_F(FormInputs, DurationsAreShownInTheirUnitsAndReadBack)
{
    struct Case {
        double workingDay;
        double seconds;
        QString shown;
        double read;
    };
    const auto input = show(form_->viewFactory()->durationInput());
    EXPECT_EQ(input->value(), 0);
    for (const auto& [workingDay, seconds, shown, read] :
        std::initializer_list<Case>{{28800, 100000, u"3 3 46"_s, 99960}, {0, 100000, u"27 46"_s, 99960},
            {0, -5400, u"-1 -30"_s, -5400}, {28800, -100000, u"-3 -3 -46"_s, -99960},
            {28800, -60, u"0 0 -1"_s, -60}, {-1, 59.9, u"0 0"_s, 0}, {0, std::nan(""), u"0 0"_s, 0},
            {NAN, HUGE_VAL, u"0 0"_s, 0},
            {0, std::ldexp(3600, 60), u"1152921504606847000 0"_s, std::ldexp(3600, 60)}}) {
        input->setValue(60);
        input->setWorkingDayLength(workingDay);
        EXPECT_EQ(input->value(), 0);
        EXPECT_TRUE(field(*input).text().isEmpty());
        input->setValue(seconds);
        EXPECT_EQ(texts(*input), shown);
        EXPECT_EQ(input->value(), read);
    }
    input->setValue(std::numeric_limits<double>::max());
    EXPECT_TRUE(std::isfinite(input->value()));
    EXPECT_EQ(changes_, 0);
}

TEST_F(FormInputs, DurationsAreTypedSteppedAndPasted)
{
    const auto input = show(form_->viewFactory()->durationInput());
    input->setWorkingDayLength(28800);
    render();
    field(*input, 1).setFocus();
    QTest::keyClicks(&field(*input, 1), u"2"_s);
    EXPECT_EQ(input->value(), 7200) << "while the field is being edited";
    for (const auto& [key, shown] :
        std::initializer_list<std::pair<Qt::Key, QString>>{{Qt::Key_Up, u"3"_s}, {Qt::Key_Down, u"2"_s},
            {Qt::Key_Down, u"1"_s}, {Qt::Key_Down, u"0"_s}, {Qt::Key_Down, u"0"_s}}) {
        QTest::keyClick(&field(*input, 1), key);
        EXPECT_EQ(field(*input, 1).text(), shown);
    }
    EXPECT_EQ(changes_, 5);
    for (const auto& [typed, shown, read] : std::initializer_list<std::tuple<QString, QString, double>>{
             {u"90"_s, u"0 90 0"_s, 324000}, {u"1.5"_s, u"0 1 30"_s, 5400}, {u" ٣ "_s, u"0 3 0"_s, 10800},
             {u"x"_s, u"0 0 0"_s, 0}, {QString(100'000, u'7'), u"0 0 0"_s, 0}, {u"1:30"_s, u"0 1 30"_s, 5400},
             {u"1h 30m"_s, u"0 1 30"_s, 5400}, {u"90m"_s, u"0 1 30"_s, 5400},
             {u"-1:30"_s, u"0 -1 -30"_s, -5400}, {u"1d 2h"_s, u"1 2 0"_s, 36000},
             {u"10 hours\n"_s, u"1 2 0"_s, 36000}, {u"1d"_s, u"1 0 0"_s, 28800}}) {
        input->setValue(0);
        field(*input, 1).setFocus();
        QTest::keySequence(&field(*input, 1), QKeySequence::SelectAll);
        paste(field(*input, 1), typed);
        QApplication::focusWidget()->clearFocus();
        EXPECT_EQ(texts(*input), shown) << qPrintable(typed.left(20));
        EXPECT_EQ(input->value(), read);
    }
    field(*input, 2).setFocus();
    changes_ = 0;
    paste(field(*input, 2), u"1.001h"_s);
    field(*input, 2).clear();
    EXPECT_EQ(input->value(), 28800 * 0 + 3600) << "an empty field is 0";
    compose(field(*input, 2), u"5"_s);
    input->setEnabled(false);
    render();
    EXPECT_EQ(input->value(), 3600);
}

TEST_F(FormInputs, TheLockOfADurationKeepsTheFieldsFromTheUser)
{
    auto input = show(form_->viewFactory()->durationInput());
    auto* const lock = input->view()->findChild<QToolButton*>();
    EXPECT_TRUE(lock->isHidden());
    input->setHideLock(false);
    int clicks = 0;
    input->setLockButtonClicked([&] { ++clicks; });
    const auto states = [&] {
        return std::tuple(
            input->isLocked(), lock->isChecked(), field(*input).isEnabled(), field(*input, 1).isEnabled());
    };
    const auto locked = std::tuple(true, true, false, false);
    const auto unlocked = std::tuple(false, false, true, true);
    QTest::keyClicks(&field(*input), u"1.5"_s);
    QTest::mouseClick(lock, Qt::LeftButton);
    EXPECT_EQ(states(), locked);
    EXPECT_EQ(texts(*input), u"1 30"_s);
    QTest::keyClick(lock, Qt::Key_Return);
    EXPECT_EQ(states(), unlocked);
    EXPECT_EQ(clicks, 2);
    input->setEnabled(false);
    EXPECT_FALSE(lock->isEnabled());
    input->setLocked(true);
    input->setEnabled(true);
    input->setLocked(true);
    EXPECT_EQ(states(), locked);
    input->setWorkingDayLength(28800);
    EXPECT_EQ(states(), locked);
    input->setHideLock(true);
    EXPECT_EQ(states(), unlocked);
    input->setLockButtonClicked([&] {
        form_->removeElement(*input);
        input.reset();
    });
    lock->click();
    EXPECT_EQ(input, nullptr);
}

TEST_F(FormInputs, TwoElementsShareARowOnOneBaseline)
{
    const auto left = form_->viewFactory()->textInput();
    const auto right = form_->viewFactory()->durationInput();
    const auto row = makeElement<FormDualInput>(left, right);
    show<FormElement>(row);
    EXPECT_EQ(
        row->focusableViews(), (std::vector<QWidget*>{left->view(), &field(*right), &field(*right, 1)}));
    EXPECT_GE(right->view()->x(), left->view()->geometry().right() + 8);
    EXPECT_EQ(left->view()->y() + *firstBaseline(*left->view()),
        right->view()->y() + *firstBaseline(*right->view()));
    EXPECT_EQ(row->view()->height(), std::max(left->view()->height(), right->view()->height()));
    window_.setLayoutDirection(Qt::RightToLeft);
    QApplication::sendPostedEvents();
    EXPECT_GT(left->view()->x(), right->view()->x());

    right->setHasChanges(true);
    EXPECT_TRUE(row->hasChanges());
    form_->resetChanges();
    EXPECT_FALSE(right->hasChanges());
    row->setEnabled(false);
    EXPECT_FALSE(left->enabled() || right->enabled());
    left->setType(TextInputType::search);
    render();
    EXPECT_EQ(left->view()->parentWidget(), row->view());
    right->setHidden(true);
    EXPECT_TRUE(waitFor([&] { return left->view()->width() == row->view()->width(); }));
    row->setHidden(true);
    render();
    EXPECT_TRUE(left->isHidden() && !row->view()->isVisible());
    row->setHidden(false);
    render();
    EXPECT_TRUE(left->view()->isVisible() && right->view()->isVisible());
}

} // namespace
