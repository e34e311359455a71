// SPDX-License-Identifier: MIT
#include "FormKit/Elements/FormElementMultilineTextInput.h"
#include "FormKit/Elements/FormElementTextInput.h"
#include "FormKit_macOS/Controls/ResizeTextView.h"
#include "FormKit_macOS/Spelling/SpellChecker.h"
#include "FormKit_macOS/Spelling/SpelledWords.h"
#include "FormKit_macOS/Spelling/SpellingMarks.h"
#include "InputFixture.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBlock>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::FormInputs;
using quor::test::waitFor;

namespace {

class FormMultilineText : public FormInputs {
protected:
    void open() { input_ = show(form_->viewFactory()->multilineTextInput()); }
    QPlainTextEdit& view() const { return *qobject_cast<QPlainTextEdit*>(input_->focusableViews().front()); }
    void key(const QKeySequence& keys) const { QTest::keySequence(&view(), keys); }

    std::shared_ptr<FormElementMultilineTextInput> input_;
};

TEST_F(FormMultilineText, EachKeyIsAChangeAndCanBeUndone)
{
    open();
    input_->setValue(u"from code"_s);
    EXPECT_FALSE(input_->hasChanges());
    view().moveCursor(QTextCursor::End);
    key(Qt::Key_Return);
    EXPECT_TRUE(input_->hasChanges());
    QTest::keyClicks(&view(), u"ab"_s);
    key(Qt::SHIFT | Qt::Key_Return);
    EXPECT_EQ(input_->value(), u"from code\nab\n"_s);
    EXPECT_EQ(changes_, 4);
    input_->setValue(input_->value());
    EXPECT_EQ(view().textCursor().position(), 13) << "a text that is shown already moves no caret";
    while (view().document()->isUndoAvailable())
        key(QKeySequence::Undo);
    EXPECT_EQ(input_->value(), u"from code"_s);
    EXPECT_GT(changes_, 4);
    input_->setValue(u"other"_s);
    key(QKeySequence::Undo);
    EXPECT_EQ(input_->value(), u"other"_s);
}

TEST_F(FormMultilineText, TextsArePlainAndKeptWhole)
{
    open();
    const QString manyLines = QString(10, u'x').append(u'\n').repeated(9'000);
    for (const auto& [given, expected] : std::initializer_list<std::pair<QString, QString>>{
             {u"a\r\nb\rc\u2028d\u2029e\n"_s, u"a\nb\nc\nd\ne\n"_s}, {u"\u00a0 \t"_s, u"\u00a0 \t"_s},
             {QString(u"a\0b"_s), u"a\0b"_s}, {QString(u"a\xd83d"_s), u"a\xd83d"_s},
             {u"\ufffc"_s, u"\ufffc"_s}, {u"<b>x</b>"_s, u"<b>x</b>"_s}, {u"שלום עולם"_s, u"שלום עולם"_s},
             {QString(100'000, u'x'), QString(100'000, u'x')}, {manyLines, manyLines}}) {
        input_->setValue({});
        paste(view(), given);
        EXPECT_EQ(input_->value(), expected) << qPrintable(given.left(20));
        input_->setValue(u"y"_s);
        input_->setValue(given);
        EXPECT_EQ(input_->value(), expected) << "from code";
        EXPECT_EQ(view().horizontalScrollBar()->maximum(), 0);
    }
    input_->setValue({});
    auto* const rich = new QMimeData;
    rich->setHtml(u"<p>one <b>two</b></p><p>three</p>"_s);
    QApplication::clipboard()->setMimeData(rich);
    key(QKeySequence::Paste);
    EXPECT_EQ(input_->value(), u"one two\nthree"_s);
}

TEST_F(FormMultilineText, ParagraphsRunInTheDirectionOfTheirFirstLetter)
{
    open();
    window_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(view().document()->firstBlock().textDirection(), Qt::RightToLeft) << "empty";
    input_->setValue(u"left\nשלום\n12 right"_s);
    const auto direction
        = [&](int line) { return view().document()->findBlockByNumber(line).textDirection(); };
    EXPECT_EQ(direction(0), Qt::LeftToRight);
    EXPECT_EQ(direction(1), Qt::RightToLeft);
    EXPECT_EQ(direction(2), Qt::LeftToRight);
}

TEST_F(FormMultilineText, OpenCompositionsAreNoValueYet)
{
    open();
    const std::function<void()> interruptions[]
        = {[&] { render(); }, [&] { input_->setEnabled(false); }, [&] { input_->setValue(u"set"_s); },
            [&] {
                form_->removeElement(*input_);
                render();
            }};
    for (const auto& interrupt : interruptions) {
        input_->setEnabled(true);
        input_->setValue({});
        view().setFocus();
        changes_ = 0;
        compose(view(), u"ni"_s);
        compose(view(), u"nih"_s);
        interrupt();
        EXPECT_EQ(input_->value(), &interrupt == &interruptions[2] ? u"set"_s : QString());
        EXPECT_EQ(changes_, 0);
        compose(view(), {}, u"你"_s); // of an input method that has not noticed
        EXPECT_EQ(input_->value().count(u'你'), 1);
        EXPECT_EQ(changes_, 1);
    }
}

TEST_F(FormMultilineText, EditingEndsWhenTheKeyboardGoesElsewhere)
{
    open();
    const auto next = form_->viewFactory()->textInput();
    form_->addElement(next);
    render();
    int ends = 0;
    input_->setDismissHandler([&](FormElementMultilineTextInput& element) {
        ++ends;
        EXPECT_EQ(&element, input_.get());
    });
    key(Qt::Key_Tab);
    EXPECT_TRUE(next->view()->hasFocus());
    EXPECT_EQ(input_->value(), QString());
    EXPECT_EQ(ends, 1);
    QTest::keyClick(next->view(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(view().hasFocus());
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(ends, 1) << "the window only";
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    input_->setEnabled(false);
    EXPECT_FALSE(view().isEnabled());
    EXPECT_EQ(ends, 2);
    input_->setEnabled(true);
    view().setFocus();
    input_->setDismissHandler([&](FormElementMultilineTextInput&) {
        form_->removeElement(*input_);
        input_.reset();
    });
    next->view()->setFocus();
    EXPECT_EQ(input_, nullptr);
}

TEST_F(FormMultilineText, ElementsMayEndWhileTheyReportAChange)
{
    open();
    input_->setValueChanged([&](FormElement&) {
        form_->removeElement(*input_);
        input_.reset();
    });
    QTest::keyClick(&view(), 'x');
    EXPECT_EQ(input_, nullptr);
}

TEST_F(FormMultilineText, TheHintStandsBelowTheTextAndTakesNoRoomIfEmpty)
{
    open();
    const auto& hint = *input_->view()->findChild<ResizeTextView*>();
    EXPECT_EQ(hint.shownText(), u"Return starts a new line, Tab moves on."_s);
    EXPECT_EQ(input_->hintText(), hint.shownText());
    EXPECT_GT(hint.y(), view().mapTo(input_->view(), QPoint(0, view().height())).y());
    const int height = input_->view()->height();
    const int textHeight = view().height();
    for (const int lines : {5, 6}) {
        input_->setValue(u"x\n"_s.repeated(lines - 1));
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(view().verticalScrollBar()->maximum(), lines - 5);
    }
    for (const auto& [text, difference] :
        std::initializer_list<std::pair<QString, int>>{{QString(), -1}, {u"Anything\nthat helps"_s, 1}}) {
        form_->setNeedsRender(false);
        input_->setHintText(text);
        EXPECT_TRUE(form_->needsRender());
        render();
        QCoreApplication::sendPostedEvents();
        EXPECT_GT(difference * (input_->view()->height() - height), 0);
        EXPECT_EQ(view().height(), textHeight);
    }
}

/// With the dictionary of American English, and a folder of its own for the word lists of the user.
class FormSpelling : public FormMultilineText {
protected:
    void SetUp() override
    {
        quor::test::writeFile(words_.filePath(u"enchant.ordering"_s), "en_US:hunspell\n");
        qputenv("ENCHANT_CONFIG_DIR", QFile::encodeName(words_.path()));
        QLocale::setDefault(QLocale(u"en_US"_s));
    }
    void TearDown() override
    {
        QLocale::setDefault(QLocale::c());
        qunsetenv("ENCHANT_CONFIG_DIR");
    }
    QStringList marked() const
    {
        QStringList words;
        for (const auto& mark : view().findChild<SpellingMarks*>()->marks())
            words += mark.selectedText();
        return words;
    }
    /// Waits until `words` are marked.
    testing::AssertionResult marks(const QStringList& words) const
    {
        if (waitFor([&] { return marked() == words; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "marked: " << qPrintable(marked().join(u' '));
    }
    bool showsLines() const
    {
        const QImage image = view().viewport()->grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (const QColor color = image.pixelColor(x, y); color.red() - color.green() > 80)
                    return true;
        return false;
    }
    /// The entries of the context menu at a place in the text; the one with the title `chosen` is triggered.
    QStringList menuAt(
        int place, const QString& chosen = {}, QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse)
    {
        const bool isByKeyboard = reason == QContextMenuEvent::Keyboard;
        QTextCursor cursor = view().textCursor();
        cursor.setPosition(place);
        if (isByKeyboard)
            view().setTextCursor(cursor);
        const QPoint point = isByKeyboard ? QPoint() : view().cursorRect(cursor).center();
        QContextMenuEvent event(reason, point, view().viewport()->mapToGlobal(point));
        QApplication::sendEvent(isByKeyboard ? &view() : view().viewport(), &event);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return {};
        QStringList titles;
        for (auto* const action : menu->actions()) {
            titles += action->text();
            if (action->text() == chosen)
                action->trigger();
        }
        menu->close();
        return titles;
    }

    QTemporaryDir words_;
};

TEST_F(FormSpelling, WordsAreMarkedWhenTheCaretHasLeftThem)
{
    open();
    QTest::keyClicks(&view(), u"Teh hosue"_s);
    EXPECT_FALSE(showsLines());
    EXPECT_TRUE(marks({u"Teh"_s}));
    EXPECT_TRUE(showsLines());
    const int undoSteps = view().document()->availableUndoSteps();
    key(Qt::Key_Left);
    key(Qt::Key_Right);
    QCoreApplication::processEvents();
    EXPECT_EQ(marked(), QStringList(u"Teh"_s)) << "still in the word";
    key(Qt::Key_Home);
    EXPECT_TRUE(marks({u"Teh"_s, u"hosue"_s}));
    key(Qt::Key_End);
    QCoreApplication::processEvents();
    EXPECT_TRUE(marks({u"Teh"_s, u"hosue"_s})) << "no key was typed";
    EXPECT_EQ(changes_, 9);
    EXPECT_EQ(view().document()->availableUndoSteps(), undoSteps);
    key(Qt::Key_Backspace);
    EXPECT_TRUE(marks({u"Teh"_s}));
    view().clearFocus();
    EXPECT_TRUE(marks({u"Teh"_s, u"hosu"_s}));
    view().setFocus();
    compose(view(), u"x"_s);
    EXPECT_TRUE(marks({u"Teh"_s}));
    compose(view(), {});
    EXPECT_TRUE(marks({u"Teh"_s, u"hosu"_s}));
    input_->setEnabled(false);
    EXPECT_TRUE(marks({}));
    input_->setEnabled(true);
    EXPECT_TRUE(marks({u"Teh"_s, u"hosu"_s}));
    input_->setEnableSpellChecking(false);
    EXPECT_TRUE(marks({}));
    EXPECT_FALSE(menuAt(1).contains(u"Add to dictionary"_s));
}

TEST_F(FormSpelling, SuggestionsReplaceTheWordAsAChangeThatCanBeUndone)
{
    open();
    input_->setValue(u"My hosue is xqzvwk"_s);
    EXPECT_TRUE(marks({u"hosue"_s, u"xqzvwk"_s}));
    EXPECT_TRUE(menuAt(18).contains(u"No suggestions"_s));
    EXPECT_FALSE(menuAt(1).contains(u"Add to dictionary"_s)) << "a correct word";
    EXPECT_EQ(menuAt(5, u"house"_s).mid(0, 7).indexOf(u"Add to dictionary"_s), 6) << "five, and a separator";
    EXPECT_EQ(input_->value(), u"My house is xqzvwk"_s);
    EXPECT_EQ(changes_, 1);
    EXPECT_TRUE(marks({u"xqzvwk"_s}));
    key(QKeySequence::Undo);
    EXPECT_EQ(input_->value(), u"My hosue is xqzvwk"_s);
    EXPECT_TRUE(marks({u"hosue"_s, u"xqzvwk"_s}));
    menuAt(8, u"house"_s, QContextMenuEvent::Keyboard);
    EXPECT_EQ(input_->value(), u"My house is xqzvwk"_s);
}

TEST_F(FormSpelling, AddedWordsAreKnownToAllInputsAndKept)
{
    open();
    input_->setValue(u"Zwyx and Zwyx"_s);
    const auto other = form_->viewFactory()->multilineTextInput();
    other->setValue(u"zwyxes Zwyx"_s);
    form_->addElement(other);
    render();
    EXPECT_TRUE(marks({u"Zwyx"_s, u"Zwyx"_s}));
    auto first = std::exchange(input_, other);
    EXPECT_TRUE(marks({u"zwyxes"_s, u"Zwyx"_s}));
    std::swap(first, input_);
    menuAt(1, u"Add to dictionary"_s);
    EXPECT_TRUE(marks({}));
    std::swap(first, input_);
    EXPECT_TRUE(marks({u"zwyxes"_s}));
    EXPECT_TRUE(
        waitFor([&] { return quor::test::readFile(words_.filePath(u"en_US.dic"_s)).contains("Zwyx"); }));
    EXPECT_EQ(changes_, 0);
}

TEST_F(FormSpelling, WithoutADictionaryThereIsNothing)
{
    QLocale::setDefault(QLocale(u"fo_FO"_s));
    open();
    input_->setValue(u"xqzvwk hosue"_s);
    QCoreApplication::processEvents(); // asks for the words
    EXPECT_TRUE(SpellChecker::forUser()->suggestions(u"hosue"_s).isEmpty());
    QCoreApplication::processEvents(); // has the answers
    EXPECT_TRUE(marked().isEmpty());
    EXPECT_FALSE(menuAt(1).contains(u"Add to dictionary"_s));
}

TEST_F(FormSpelling, OnlyWhatIsInSightIsChecked)
{
    open();
    const QString text = u"hosue "_s.repeated(16'667);
    for (const QString& long_ : {text, QString(text).replace(u' ', u'\n')}) {
        input_->setValue(long_);
        EXPECT_TRUE(waitFor([&] { return !marked().isEmpty(); }));
        EXPECT_LT(marked().size(), 200);
        view().moveCursor(QTextCursor::End);
        EXPECT_TRUE(waitFor([&] {
            const auto& marks = view().findChild<SpellingMarks*>()->marks();
            return !marks.empty() && marks.back().position() > 99'900;
        }));
        EXPECT_LT(marked().size(), 200);
    }
}

TEST(SpelledWords, AreWordsOfLettersOutsideOfAddresses)
{
    for (const auto& [text, expected] : std::initializer_list<std::pair<QString, QString>>{
             {u"It's a don’t-care, “quoted” end."_s, u"It's|don’t|care|quoted|end"_s},
             {u"see https://example.org/hosue or www.hosue.org, me@hosue.org now"_s, u"see|or|now"_s},
             {u"x64 2nd snake_case file.txt e.g. 1,5 €"_s, u""_s},
             {u"ä naïve e\u0301te\u0301 Straße"_s, u"naïve|e\u0301te\u0301|Straße"_s},
             {u"слово שלום"_s, u"слово|שלום"_s}, {u"\xd83d\xde00 \xd83d"_s, u""_s},
             {QString(100, u'x') + u' ' + QString(101, u'x'), QString(100, u'x')}, {u" \n\t"_s, u""_s}}) {
        QStringList words;
        for (const auto& word : spelledWords(text))
            words += text.mid(word.location, word.length);
        EXPECT_EQ(words.join(u'|'), expected);
    }
}

} // namespace
