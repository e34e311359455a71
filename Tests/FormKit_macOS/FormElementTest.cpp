// SPDX-License-Identifier: MIT
#include "FormKit/Form.h"
#include "FormKit_macOS/Controls/BackButton.h"
#include "FormKit_macOS/Controls/ElidedLabel.h"
#include "FormKit_macOS/Controls/Segment.h"
#include "FormKit_macOS/Elements/FormButton.h"
#include "FormKit_macOS/Elements/FormButtonSelection.h"
#include "FormKit_macOS/Elements/FormCheckBox.h"
#include "FormKit_macOS/Elements/FormHintText.h"
#include "FormKit_macOS/Elements/FormRadioButton.h"
#include "FormKit_macOS/Elements/FormSeparator.h"
#include "FormKit_macOS/Elements/FormStateView.h"
#include "FormKit_macOS/Elements/FormTitle.h"
#include "FormKit_macOS/FormViewFactory.h"
#include "Support/WaitFor.h"
#include "ToolKit_macOS/SyncSpinner.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace quor::formkit;
using namespace Qt::StringLiterals;
using quor::test::waitFor;

namespace {

/// A window that shows the views of elements below each other, 300 pixels wide.
class FormElements : public testing::Test {
protected:
    FormElements() { window_.setLayout(layout_); }

    template <class T, class... Arguments>
    std::shared_ptr<T> add(Arguments&&... arguments)
    {
        const auto element = makeElement<T>(std::forward<Arguments>(arguments)...);
        form_->addElement(element);
        layout_->addWidget(element->view());
        return element;
    }
    void show(int width = 300)
    {
        layout_->addStretch();
        window_.resize(width, 500);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }
    static QPoint linkPlace(const ResizeTextView& view)
    {
        for (int y = 1; y < view.height(); y += 3)
            for (int x = 1; x < view.width(); x += 3)
                if (!view.anchorAt({x, y}).isEmpty())
                    return {x, y};
        return {-1, -1};
    }
    static void click(QWidget* widget, QPoint place = {})
    {
        QTest::mouseClick(widget, Qt::LeftButton, {}, place);
    }

    static void holdReturn(QWidget* widget)
    {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QApplication::sendEvent(widget, &repeated);
    }
    static void toggleByScreenReader(QWidget* widget)
    {
        QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    }
    static QAccessible::Role role(QWidget* widget)
    {
        return QAccessible::queryAccessibleInterface(widget)->role();
    }

    std::shared_ptr<Form> form_
        = std::make_shared<Form>(u"Form"_s, std::make_shared<FormViewFactory>(), 300, 0.6);
    QWidget window_;
    QVBoxLayout* layout_ = new QVBoxLayout;
};

TEST_F(FormElements, SeparatorsAreHighAsTheyAreSeen)
{
    const auto separator = add<FormSeparator>();
    show();
    for (const auto& [isTransparent, height] : {std::pair(true, 5), std::pair(false, 15)}) {
        separator->setTransparent(isTransparent);
        QApplication::sendPostedEvents();
        EXPECT_EQ(separator->view()->height(), height);
        EXPECT_EQ(separator->view()->findChild<QFrame*>()->isVisible(), !isTransparent);
    }
}

TEST_F(FormElements, TitlesFollowTheFontAndLeadBack)
{
    const auto title = add<FormTitle>(FormTitle::TitleType::title, true);
    const auto subtitle = add<FormTitle>(FormTitle::TitleType::subtitle, false);
    title->setText(u"A title\nthat is & far too long for the line that it has to stand in"_s);
    show();
    auto* const label = title->view()->findChild<ElidedLabel*>();
    EXPECT_EQ(title->view()->width(), subtitle->view()->width());
    EXPECT_EQ(label->text(), u"A title that is & far too long for the line that it has to stand in"_s);
    const QFont before = QApplication::font();
    for (const double size : {10.0, 20.0}) {
        QFont font = before;
        font.setPointSizeF(size);
        QApplication::setFont(font);
        QApplication::processEvents();
        EXPECT_DOUBLE_EQ(label->font().pointSizeF(), size * 1.2);
        EXPECT_DOUBLE_EQ(subtitle->view()->findChild<ElidedLabel*>()->font().pointSizeF(), size * 0.9);
    }
    QApplication::setFont(before);
    int backs = 0;
    title->setBackButtonHandler([&] { ++backs; });
    auto* const back = title->view()->findChild<BackButton*>();
    EXPECT_EQ(back->accessibleName(), u"Back"_s);
    click(back);
    back->setFocus();
    QTest::keyClick(back, Qt::Key_Return);
    holdReturn(back);
    EXPECT_EQ(backs, 2);
    EXPECT_EQ(subtitle->view()->findChild<BackButton*>(), nullptr);
}

TEST_F(FormElements, ButtonsShowTheirTitlesLiterallyAndFitIntoTheirRow)
{
    struct Case {
        QString title;
        bool parseMarkdown;
        QString name;
    };
    const auto button = add<FormButton>();
    show();
    for (const auto& [title, parseMarkdown, name] : std::initializer_list<Case>{
             {u"Save & close"_s, false, u"Save & close"_s},
             {u"one\ntwo"_s, false, u"one two"_s},
             {u"**not** bold"_s, false, u"**not** bold"_s},
             {u"**bold** & more"_s, true, u"bold & more"_s},
             {QString(100'000, u'x'), false, QString(100'000, u'x')},
         }) {
        button->setTitle(title);
        button->setParseMarkdown(parseMarkdown);
        for (const auto style : {FormButtonStyle::rounded, FormButtonStyle::textOnly}) {
            button->setStyle(style);
            QApplication::sendPostedEvents();
            window_.grab();
            EXPECT_LE(button->button()->width(), button->view()->width());
            EXPECT_LT(window_.minimumSizeHint().width(), 300);
        }
        EXPECT_EQ(QAccessible::queryAccessibleInterface(button->button())->text(QAccessible::Name), name);
        EXPECT_TRUE(button->button()->shortcut().isEmpty());
    }
}

TEST_F(FormElements, ButtonsAtOneSideAreMirrored)
{
    const auto button = add<FormButton>();
    button->setTitle(u"OK"_s);
    show();
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        for (const auto alignment : {FormTextAlignment::left, FormTextAlignment::right}) {
            window_.setLayoutDirection(direction);
            button->setAlignment(alignment);
            QApplication::sendPostedEvents();
            const bool isLeft = (alignment == FormTextAlignment::left) == (direction == Qt::LeftToRight);
            EXPECT_EQ(button->button()->x() == 0, isLeft);
        }
    }
}

TEST_F(FormElements, AButtonInProgressCannotBePressed)
{
    const auto button = add<FormButton>();
    button->setTitle(u"Save"_s);
    int clicks = 0;
    button->setButtonClickedHandler([&](FormElementButton&) { ++clicks; });
    show();
    const int width = button->button()->sizeHint().width();
    QElapsedTimer time;
    time.start();
    button->setShowProgress(true);
    button->setEnabled(true);
    click(button->button());
    auto* const spinner = button->button()->findChild<quor::toolkit::SyncSpinner*>();
    EXPECT_FALSE(spinner->isSpinning());
    EXPECT_TRUE(waitFor([&] { return spinner->isSpinning(); }));
    EXPECT_GE(time.elapsed(), 95);
    EXPECT_GE(button->button()->sizeHint().width(), width);
    EXPECT_TRUE(button->button()->rect().contains(spinner->geometry()));
    button->setEnabled(false);
    button->setShowProgress(false);
    EXPECT_FALSE(spinner->isSpinning() || spinner->isVisible());
    click(button->button());
    EXPECT_EQ(clicks, 0) << "the end of the progress enabled a disabled element";
    button->setEnabled(true);
    click(button->button());
    button->button()->setFocus();
    QTest::keyClick(button->button(), Qt::Key_Return);
    EXPECT_EQ(clicks, 2);
    holdReturn(button->button());
    EXPECT_EQ(clicks, 2);
    button->setHidden(true);
    EXPECT_TRUE(button->button()->isHidden());
}

TEST_F(FormElements, SegmentsAreChosenByMouseAndKeys)
{
    const auto selection = add<FormButtonSelection>();
    selection->setSelectedTag(7);
    selection->setButtons({{5, u"A & B"_s}, {6, u"Second"_s}, {7, u"Third one"_s}, {6, u"Same tag"_s}});
    int changes = 0;
    selection->setValueChanged([&](FormElement&) { ++changes; });
    show(600);
    auto* const row = selection->view();
    auto& control = dynamic_cast<SegmentedControl&>(*row);
    const auto segments = row->findChildren<Segment*>();
    const auto states = [&] {
        QString text;
        for (const auto* segment : segments)
            text += segment->isChecked() ? u'1' : u'0';
        return text;
    };
    EXPECT_EQ(control.segmentCount(), 4);
    EXPECT_EQ(control.selectedSegment(), 2);
    EXPECT_EQ(states(), u"0010"_s);
    EXPECT_FALSE(selection->hasChanges());
    click(segments[1]);
    EXPECT_EQ(states(), u"0101"_s);
    EXPECT_EQ(control.segmentRect(control.selectedSegment()), segments[1]->geometry());
    EXPECT_TRUE(row->hasFocus() && selection->hasChanges());
    QTest::keyClick(row, Qt::Key_Left);
    EXPECT_EQ(selection->selectedTag(), 5);
    QTest::keyClick(row, Qt::Key_Left); // there is no further one
    window_.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(row, Qt::Key_Left);
    EXPECT_EQ(selection->selectedTag(), 6);
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(role(segments[1]), QAccessible::RadioButton);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(segments[1])->state().focused);
    selection->setAllowMultipleSelection(true);
    EXPECT_EQ(role(segments[1]), QAccessible::CheckBox);
    EXPECT_EQ(states(), u"0000"_s);
    QTest::keyClick(row, Qt::Key_End);
    EXPECT_EQ(changes, 3) << "only moved the focus";
    QTest::keyClick(row, Qt::Key_Space);
    EXPECT_EQ(selection->selectedTags(), (std::set{6}));
    click(segments[0]);
    EXPECT_EQ(selection->selectedTags(), (std::set{5, 6}));
    toggleByScreenReader(segments[0]);
    EXPECT_EQ(selection->selectedTags(), (std::set{6}));
    selection->setEnabled(false);
    click(segments[0]);
    EXPECT_EQ(changes, 6);
    selection->setEnabled(true);
    selection->setAllowMultipleSelection(false);
    row->setFocus();
    selection->setValueChanged([&](FormElement&) {
        selection->setButtons({{5, u"New"_s}, {6, u"titles"_s}, {7, u"!"_s}});
    });
    QTest::keyClick(row, Qt::Key_Home);
    QTest::keyClick(row, Qt::Key_Left); // mirrored
    QTest::keyClick(row, Qt::Key_Left);
    EXPECT_EQ(selection->selectedTag(), 7) << "new titles took the keys to another segment";
    selection->setButtons({});
    QTest::keyClick(row, Qt::Key_Right);
    EXPECT_EQ(control.selectedSegment(), -1);
}

TEST_F(FormElements, TheTextOfACheckBoxIsPartOfIt)
{
    const auto box = add<FormCheckBox>();
    box->setTitle(
        u"Send **all** reports that this program can make, as told in [the help](https://example.org/a)"_s);
    box->setAlternateTitle(u"Sends them"_s);
    int changes = 0;
    std::vector<QUrl> links;
    box->setValueChanged([&](FormElement&) { ++changes; });
    box->setLinkClicked([&](const QUrl& url) { links.push_back(url); });
    show();
    auto& row = static_cast<ToggleRow&>(*box->view());
    auto* const viewport = row.text().viewport();
    EXPECT_GT(row.height(), 2 * row.fontMetrics().height()) << "does not wrap";
    EXPECT_LT(row.box().geometry().center().y(), row.fontMetrics().height()) << "not at the first line";
    const auto* const accessible = QAccessible::queryAccessibleInterface(&row.box());
    EXPECT_EQ(accessible->text(QAccessible::Name),
        u"Send all reports that this program can make, as told in the help"_s);
    click(viewport, linkPlace(row.text()));
    EXPECT_EQ(links, std::vector{QUrl(u"https://example.org/a"_s)});
    EXPECT_FALSE(box->value());
    click(viewport, {5, 5});
    EXPECT_TRUE(box->value() && box->hasChanges() && row.box().isChecked() && row.box().hasFocus());
    EXPECT_EQ(row.text().shownText(), u"Sends them"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&row)->childCount(), 1) << "read twice";
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, {5, 5}); // press, release and a double click
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, {5, 5});
    toggleByScreenReader(&row.box());
    EXPECT_EQ(changes, box->value() ? 3 : 4);
    EXPECT_EQ(row.box().isChecked(), box->value());
    EXPECT_EQ(row.children().indexOf(&row.box()), 0) << "Tab reaches the link first";
    QTest::mousePress(viewport, Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, {5, 500});
    const int before = changes;
    box->setValue(!box->value());
    box->setEnabled(false);
    click(viewport, {5, 5});
    EXPECT_EQ(changes, before);
    EXPECT_TRUE(box->focusableViews().empty());
}

TEST_F(FormElements, RadioButtonsThatFollowEachOtherExcludeEachOther)
{
    std::vector<std::shared_ptr<FormRadioButton>> radios;
    int changes = 0;
    for (int i = 0; i < 5; ++i) {
        if (i == 3)
            add<FormSeparator>();
        radios.push_back(add<FormRadioButton>());
        radios.back()->setTitle(u"&Choice <b>"_s);
        radios.back()->setValueChanged([&](FormElement&) { ++changes; });
    }
    show();
    const auto states = [&] {
        QString text;
        for (const auto& radio : radios)
            text += radio->isOn() ? u'1' : u'0';
        return text;
    };
    const auto box = [&](std::size_t i) { return &static_cast<ToggleRow&>(*radios[i]->view()).box(); };
    radios[4]->setOn(true);
    EXPECT_EQ(changes, 0);
    click(box(0));
    click(box(0)); // stays on
    EXPECT_EQ(states(), u"10001"_s);
    click(static_cast<ToggleRow&>(*radios[1]->view()).text().viewport(), {5, 5});
    EXPECT_EQ(states(), u"01001"_s);
    radios[2]->setEnabled(false);
    QTest::keyClick(box(1), Qt::Key_Down); // to the first, since the third one is disabled
    EXPECT_EQ(states(), u"10001"_s);
    EXPECT_TRUE(box(0)->hasFocus());
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(role(box(1)), QAccessible::RadioButton);
    toggleByScreenReader(box(1));
    toggleByScreenReader(box(1)); // stays on
    radios[3]->setEnabled(false);
    QTest::keyClick(box(4), Qt::Key_Up); // no other one is left
    EXPECT_EQ(changes, 6);
    EXPECT_TRUE(radios[1]->isOn() && box(1)->isChecked());
    EXPECT_FALSE(radios[0]->hasChanges());
    EXPECT_EQ(box(0)->accessibleName(), u"&Choice <b>"_s);
}

TEST_F(FormElements, TextsAreExactlyAsHighAsTheyNeed)
{
    struct Case {
        QString text;
        bool parseMarkdown;
        QString shown;
    };
    const auto hint = add<FormHintText>();
    show();
    auto& view = static_cast<ResizeTextView&>(*hint->view());
    for (const auto& [text, parseMarkdown, shown] : std::initializer_list<Case>{
             {QString(), false, QString()},
             {u"One line"_s, false, u"One line"_s},
             {u"<b>tags</b> & [marks](https://example.org)"_s, false,
                 u"<b>tags</b> & [marks](https://example.org)"_s},
             {u"**bold** <i>tag</i> [link](https://example.org)"_s, true, u"bold <i>tag</i> link"_s},
             {u"two\nlines\n"_s, false, u"two\nlines\n"_s},
             {QString(1000, u'w'), false, QString(1000, u'w')},
             {u"\u05e9\u05dc\u05d5\u05dd \u202egnal\u202c and more \ufffc"_s, false,
                 u"\u05e9\u05dc\u05d5\u05dd \u202egnal\u202c and more \ufffc"_s},
             {u"word \n"_s.repeated(17'000), false, u"word \n"_s.repeated(17'000)},
         }) {
        hint->setValue(text);
        hint->setParseMarkdown(parseMarkdown);
        QApplication::sendPostedEvents();
        EXPECT_EQ(view.shownText(), shown);
        EXPECT_EQ(view.document()->toPlainText(), shown);
        for (const int width : {280, 120}) {
            const int height = view.heightForWidth(width);
            const int lines = static_cast<int>(std::max(shown.count(u'\n') + 1, qsizetype(1)));
            EXPECT_GE(height, lines * QFontMetrics(view.document()->defaultFont()).height() - lines);
            view.resize(width, height);
            EXPECT_EQ(std::ceil(view.document()->size().height()), height);
            EXPECT_LE(view.document()->size().width(), width) << "a long word is cut off";
        }
        EXPECT_LT(window_.minimumSizeHint().width(), 300);
    }
    for (const auto& text : {QString(100'000, u'w'), QString(100'000, u'*')}) {
        hint->setValue(text);
        EXPECT_EQ(view.document()->defaultTextOption().wrapMode(), QTextOption::WrapAnywhere)
            << "looking for the ends of words would take the square of its length";
    }
    hint->setIsBig(true);
    EXPECT_EQ(view.document()->defaultFont().pointSizeF(), view.font().pointSizeF());
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_FALSE(wheel.isAccepted());
}

TEST_F(FormElements, AHintAsksForARenderIfItsHeightChanges)
{
    const auto hint = add<FormHintText>();
    hint->setValue(u"first"_s);
    show();
    for (const auto& [text, renders] : {std::pair(u"second"_s, false), std::pair(u"two\nlines"_s, true),
             std::pair(u"lines\ntwo"_s, false), std::pair(u"one"_s, true)}) {
        form_->setNeedsRender(false);
        hint->setValue(text);
        EXPECT_EQ(form_->needsRender(), renders) << text.toStdString();
        QApplication::sendPostedEvents();
    }
}

TEST_F(FormElements, LinksAreReachedAndOpenedByKeyboard)
{
    auto* const before = new QLineEdit;
    layout_->addWidget(before);
    const auto plain = add<FormHintText>();
    plain->setValue(u"No link"_s);
    const auto hint = add<FormHintText>();
    hint->setParseMarkdown(true);
    hint->setValue(u"See [one](https://example.org/1) and [two](https://example.org/2)."_s);
    auto* const after = new QLineEdit;
    layout_->addWidget(after);
    QStringList opened;
    hint->setLinkClicked([&](const QUrl& url) { opened.append(url.path()); });
    show();
    before->setFocus();
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    };
    press(Qt::Key_Tab);
    EXPECT_TRUE(hint->view()->hasFocus());
    press(Qt::Key_Return);
    const QImage first = hint->view()->grab().toImage();
    press(Qt::Key_Tab);
    EXPECT_NE(hint->view()->grab().toImage(), first) << "the focus is not seen";
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Return);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Return);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before->hasFocus());
    auto& view = static_cast<ResizeTextView&>(*hint->view());
    click(view.viewport(), linkPlace(view));
    EXPECT_EQ(opened, (QStringList{u"/1"_s, u"/2"_s, u"/2"_s, u"/1"_s, u"/1"_s}));
}

TEST_F(FormElements, LinksKeepTheFocusAndTheirPlaceWhenTheTextChanges)
{
    auto* const before = new QLineEdit;
    layout_->addWidget(before);
    const auto hint = add<FormHintText>();
    hint->setParseMarkdown(true);
    hint->setValue(u"[first](https://example.org/1) or [second](https://example.org/2)"_s);
    QStringList opened;
    hint->setLinkClicked([&](const QUrl& url) {
        opened.append(url.path());
        hint->setValue(u"[more](https://example.org/3)\nlines and\n[last](https://example.org/4)"_s);
    });
    show();
    auto& view = static_cast<ResizeTextView&>(*hint->view());
    view.setFixedHeight(10);
    view.setFocus(Qt::BacktabFocusReason);
    hint->setTextColor(Qt::red);
    QTest::keyClick(&view, Qt::Key_Return);
    holdReturn(&view);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(opened, (QStringList{u"/2"_s, u"/4"_s}));
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "stays scrolled when it has its height";
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(view.textCursor().selectedText(), u"more"_s);
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before->hasFocus()) << "caught at the beginning of the text";
}

TEST_F(FormElements, AStateWrapsItsTextsAndRunsItsAction)
{
    const auto state = add<FormStateView>();
    int actions = 0;
    state->setAction([&] { ++actions; });
    state->setTitle(u"A title that takes more than one line in this window, which is narrow"_s);
    state->setMessage(u"A message"_s);
    state->setButtonTitle(u"Close"_s);
    show();
    auto* const button = state->view()->findChild<LargerButton*>();
    const auto texts = state->view()->findChildren<ResizeTextView*>();
    EXPECT_EQ(texts[0]->y(), 30);
    EXPECT_EQ(texts[0]->height(), texts[0]->heightForWidth(texts[0]->width()));
    EXPECT_EQ(button->y() - texts[1]->geometry().bottom() - 1, 20);
    EXPECT_EQ(state->view()->height() - button->geometry().bottom() - 1, 20);
    EXPECT_NEAR(button->geometry().center().x(), state->view()->rect().center().x(), 1);
    click(button);
    EXPECT_EQ(actions, 1);
}

/// Makes an element of each kind, and does to it what calls its handler.
struct Ending {
    const char* name;
    std::function<std::shared_ptr<FormElement>(std::function<void()> handler)> make;
    std::function<void(QWidget& view)> operate;
};

TEST_F(FormElements, ElementsMayEndInTheirHandlers)
{
    const auto clickChild = [](auto* child) { click(child, child->rect().center()); };
    const auto pressLink = [](QWidget& view) {
        auto* const text = view.findChild<ResizeTextView*>();
        auto& links = text ? *text : static_cast<ResizeTextView&>(view);
        click(links.viewport(), linkPlace(links));
    };
    const auto link = u"[Link](https://example.org)"_s;
    const std::vector<Ending> endings{
        {"button",
            [](auto handler) {
                const auto button = makeElement<FormButton>();
                button->setTitle(u"Button"_s);
                button->setButtonClickedHandler([handler](FormElementButton&) { handler(); });
                return button;
            },
            [&](QWidget& view) { clickChild(view.findChild<LargerButton*>()); }},
        {"selection",
            [](auto handler) {
                const auto selection = makeElement<FormButtonSelection>();
                selection->setButtons({{1, u"One"_s}, {2, u"Two"_s}});
                selection->setValueChanged([handler](FormElement&) { handler(); });
                return selection;
            },
            [&](QWidget& view) { clickChild(view.findChildren<Segment*>().last()); }},
        {"check box",
            [](auto handler) {
                const auto box = makeElement<FormCheckBox>();
                box->setTitle(u"Box"_s);
                box->setValueChanged([handler](FormElement&) { handler(); });
                return box;
            },
            [&](QWidget& view) {
                click(view.findChild<ResizeTextView*>()->viewport(), {3, 3});
            }},
        {"link of a check box",
            [&](auto handler) {
                const auto box = makeElement<FormCheckBox>();
                box->setTitle(link);
                box->setLinkClicked([handler](const QUrl&) { handler(); });
                return box;
            },
            pressLink},
        {"radio button",
            [](auto handler) {
                const auto radio = makeElement<FormRadioButton>();
                radio->setValueChanged([handler](FormElement&) { handler(); });
                return radio;
            },
            [](QWidget& view) {
                click(&static_cast<ToggleRow&>(view).box(), {5, 5});
            }},
        {"hint",
            [&](auto handler) {
                const auto hint = makeElement<FormHintText>();
                hint->setParseMarkdown(true);
                hint->setValue(link);
                hint->setLinkClicked([handler](const QUrl&) { handler(); });
                return hint;
            },
            pressLink},
        {"state",
            [](auto handler) {
                const auto state = makeElement<FormStateView>();
                state->setButtonTitle(u"Close"_s);
                state->setAction(handler);
                return state;
            },
            [&](QWidget& view) { clickChild(view.findChild<LargerButton*>()); }},
        {"title",
            [](auto handler) {
                const auto title = makeElement<FormTitle>(FormTitle::TitleType::title, true);
                title->setBackButtonHandler(handler);
                return title;
            },
            [&](QWidget& view) { clickChild(view.findChild<BackButton*>()); }},
    };
    show();
    for (const auto& ending : endings) {
        std::shared_ptr<FormElement> element;
        int calls = 0;
        element = ending.make([&] {
            ++calls;
            form_->removeElement(*element);
            form_ = std::make_shared<Form>(std::nullopt, std::make_shared<FormViewFactory>(), 300, 0.6);
            element.reset();
        });
        form_->addElement(element);
        const QPointer<QWidget> view = element->view();
        layout_->insertWidget(0, view);
        ASSERT_TRUE(waitFor([&] { return view->isVisible(); }));
        layout_->activate();
        ending.operate(*view);
        EXPECT_EQ(calls, 1) << ending.name;
        EXPECT_EQ(element, nullptr);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(view.isNull()) << ending.name;
    }
}

TEST_F(FormElements, ElementsOutliveAParentThatDeletesTheirViews)
{
    const FormViewFactory factory;
    const auto button = factory.button();
    const auto box = factory.checkBox();
    const auto hint = factory.hintText();
    const auto selection = factory.buttonSelection();
    const auto state = factory.state();
    const auto separator = factory.separator();
    {
        QWidget parent;
        for (const auto& element : std::initializer_list<std::shared_ptr<FormElement>>{
                 button, box, hint, selection, state, separator})
            element->view()->setParent(&parent);
    }
    button->setTitle(u"a"_s);
    button->setShowProgress(true);
    button->setAlignment(FormTextAlignment::right);
    button->setEnabled(false);
    box->setTitle(u"a"_s);
    box->setValue(true);
    hint->setValue(u"a"_s);
    hint->setAlignment(FormTextAlignment::center);
    selection->setButtons({{1, u"a"_s}});
    selection->setSelectedTag(1);
    state->setTitle(u"a"_s);
    state->setEnabled(false);
    separator->setTransparent(true);
    EXPECT_EQ(button->title() + box->title() + hint->value() + state->title(), u"aaaa"_s);
}

TEST(FormViewFactory, EndsTheProgramForAnElementThatIsMissing)
{
    EXPECT_DEATH((void)FormViewFactory().dropDown(), "FormDropDown");
}

} // namespace
