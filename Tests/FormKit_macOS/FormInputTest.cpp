// SPDX-License-Identifier: MIT
#include "FormKit/Form.h"
#include "FormKit_macOS/Elements/FormTextInput.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "FormKit_macOS/Rendering/FormViewRenderer.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QScrollArea>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;

namespace {

/// A form in a window.
class FormInputs : public testing::Test {
protected:
    template <class Element>
    std::shared_ptr<Element> show(std::shared_ptr<Element> element)
    {
        form_->addElement(element);
        element->setValueChanged([this](FormElement&) { ++changes_; });
        render();
        window_.resize(400, 300);
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        element->focusableViews().front()->setFocus();
        return element;
    }
    void render()
    {
        form_->setNeedsRender(true);
        renderer_.render(*form_);
    }
    static InputField& field(const FormElement& element, std::size_t index = 0)
    {
        return *qobject_cast<InputField*>(element.focusableViews()[index]);
    }
    static void compose(QWidget& view, const QString& preedit, const QString& commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(&view, &event);
    }
    static void paste(QWidget& view, const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(&view, QKeySequence::Paste);
    }

    QWidget window_;
    std::shared_ptr<Form> form_
        = std::make_shared<Form>(std::nullopt, std::make_shared<FormViewFactory>(), 400, 0.6);
    FormViewRenderer renderer_{FormViewRenderer::RenderMode::normal, window_, false};
    int changes_ = 0;
};

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

} // namespace
